// Batch runs.
#include "cli/Batch.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace togu::cli {

namespace {

struct Job {
    fs::path drawing, output, log;
    std::chrono::steady_clock::time_point start;
};

/// Starts togu on one drawing with its transcript in the log; -1 when it cannot.
pid_t start(const fs::path& executable, const Options& o, const Job& job)
{
    std::vector<std::string> args = {executable.string(), job.drawing.string(), "-s", *o.batch, "-o",
                                     job.output.string()};
    if (o.recover)
        args.push_back("--recover");
    if (o.install)
        args.insert(args.end(), {"--install", *o.install});
    if (o.registry)
        args.insert(args.end(), {"--registry", *o.registry});
    int log = ::open(job.log.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (log < 0)
        return -1;
    pid_t pid = fork();
    if (pid == 0) {
        int devnull = ::open("/dev/null", O_RDONLY);
        if (devnull < 0 || dup2(devnull, 0) < 0 || dup2(log, 1) < 0 || dup2(log, 2) < 0)
            _exit(127);
        std::vector<char*> argv;
        for (auto& a : args)
            argv.push_back(a.data());
        argv.push_back(nullptr);
        execv(argv[0], argv.data());
        _exit(127);
    }
    ::close(log);
    return pid;
}

/// The reason a drawing failed: the last line togu wrote about it, else its exit status.
std::string reason(const fs::path& log, int status)
{
    std::ifstream f(log);
    std::string line, last;
    while (std::getline(f, line))
        if (line.rfind("togu: ", 0) == 0)
            last = line.substr(6);
    if (!last.empty())
        return last;
    if (WIFSIGNALED(status))
        return "ended by signal " + std::to_string(WTERMSIG(status));
    return "exit status " + std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : -1);
}

} // namespace

int runBatch(const Options& o, const fs::path& executable, std::ostream& out, std::ostream& err)
{
    std::error_code ec;
    if (!fs::is_regular_file(*o.batch, ec)) {
        err << "togu: cannot read the script " << *o.batch << "\n";
        return 2;
    }
    if (o.outDir && !fs::is_directory(*o.outDir, ec)) {
        err << "togu: the output folder " << *o.outDir << " does not exist\n";
        return 2;
    }
    std::vector<Job> jobs;
    std::set<fs::path> outputs;
    for (const auto& name : o.batchFiles) {
        Job job;
        job.drawing = name;
        job.output = o.outDir ? fs::path(*o.outDir) / job.drawing.filename() : job.drawing;
        job.log = fs::path(job.output).replace_extension(".log");
        if (!outputs.insert(fs::absolute(job.output, ec).lexically_normal()).second) {
            err << "togu: two drawings would be saved as " << job.output.string() << "\n";
            return 2;
        }
        jobs.push_back(job);
    }

    const size_t total = jobs.size();
    size_t next = 0, ended = 0;
    std::map<pid_t, size_t> running;
    std::vector<std::string> failures;
    auto report = [&](size_t i, const std::string& result) {
        double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - jobs[i].start).count();
        char time[32];
        std::snprintf(time, sizeof time, "%.1f s", seconds);
        out << "[" << ++ended << "/" << total << "] " << jobs[i].drawing.string() << ": " << result << " (" << time
            << ")" << std::endl;
        if (result != "ok")
            failures.push_back(jobs[i].drawing.string());
    };
    while (ended < total) {
        while (next < total && running.size() < static_cast<size_t>(o.jobs)) {
            Job& job = jobs[next];
            job.start = std::chrono::steady_clock::now();
            pid_t pid = start(executable, o, job);
            if (pid < 0)
                report(next, "failed: cannot start (" + job.log.string() + ")");
            else
                running[pid] = next;
            ++next;
        }
        if (running.empty())
            continue;
        int status = 0;
        pid_t pid = waitpid(-1, &status, 0);
        if (pid < 0)
            break;
        auto it = running.find(pid);
        if (it == running.end())
            continue;
        size_t i = it->second;
        running.erase(it);
        bool ok = WIFEXITED(status) && WEXITSTATUS(status) == 0;
        report(i, ok ? "ok" : "failed: " + reason(jobs[i].log, status));
    }
    out << total - failures.size() << " of " << total << " drawings done";
    if (!failures.empty()) {
        out << ", " << failures.size() << " failed:";
        for (const auto& f : failures)
            out << " " << f;
    }
    out << std::endl;
    return failures.empty() ? 0 : 1;
}

} // namespace togu::cli
