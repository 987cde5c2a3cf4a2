// The togu console.
#include "cli/Console.h"

#include <fstream>
#include <iostream>
#include <sstream>
#include <system_error>

#include "cli/DrawingFiles.h"
#include "cli/Installation.h"
#include "cli/LineEditor.h"
#include "cli/Paths.h"
#include "rxregsvc.h"
#include "sim/app/CommandLine.h"
#include "sim/app/Loader.h"
#include "sim/core/Session.h"

namespace fs = std::filesystem;

namespace togu::cli {

namespace {

/// The system's name among the host's applications.
constexpr const wchar_t* kSystemName = L"TogUtility_Ac_2021_x64";

std::optional<std::string> readFile(const fs::path& path, std::string& error)
{
    std::ifstream f(path, std::ios::binary);
    if (!f) {
        error = "cannot read the script " + path.string();
        return std::nullopt;
    }
    std::ostringstream s;
    s << f.rdbuf();
    if (f.bad()) {
        error = "cannot read the script " + path.string();
        return std::nullopt;
    }
    return s.str();
}

} // namespace

int run(const Options& options, const fs::path& executable, std::istream& in, bool inIsTerminal, std::ostream& out,
        std::ostream& err)
{
    auto failed = [&](const std::string& message) {
        err << "togu: " << message << "\n";
        return 1;
    };

    Installation inst;
    inst.installDir = options.install ? fs::path(*options.install) : defaultInstallDir(executable);
    inst.registryDir = options.registry ? fs::path(*options.registry) : defaultRegistryDir();
    std::error_code ec;
    if (!fs::is_directory(inst.installDir, ec))
        return failed("the installation folder " + inst.installDir.string() + " does not exist");
    if (std::string e = prepareInstallation(inst); !e.empty())
        return failed(e);

    std::unique_ptr<sim::InputSource> input;
    std::string scriptName;
    if (options.script) {
        std::string error;
        auto text = readFile(*options.script, error);
        if (!text)
            return failed(error);
        input = std::make_unique<sim::ScriptInput>(*text);
        scriptName = *options.script;
    } else if (inIsTerminal) {
        input = std::make_unique<LineEditor>();
    } else {
        std::ostringstream piped;
        piped << in.rdbuf();
        input = std::make_unique<sim::ScriptInput>(piped.str());
        scriptName = "standard input";
    }

    sim::Session session(std::move(input), &out);
    std::string registryError;
    auto registry = openRegistry(inst, registryError);
    if (!registry)
        return failed(registryError);
    std::vector<std::string> repairs;
    if (std::string e = options.drawing ? openDrawing(*options.drawing, options.recover ? &repairs : nullptr)
                                        : newDrawing();
        !e.empty()) {
        closeDrawings();
        return failed(e);
    }
    if (options.recover && options.drawing) {
        for (const auto& r : repairs)
            out << "Recover: " << r << "\n";
        out << "Recover: " << *options.drawing << ": " << repairs.size()
            << (repairs.size() == 1 ? " repair" : " repairs") << "\n";
    }

    std::wstring loadError;
    if (!sim::app::dynamicLinker().load(kSystemName, acrxEntryPoint, &loadError)) {
        closeDrawings();
        return failed(sim::toUtf8(loadError));
    }
    // A prompt of the start (the first-run question) may already have used up the script.
    if (!sim::app::failIfPromptWaiting() && !session.failure())
        sim::app::commandLoop();
    // The drawing is saved as the host saves before it quits; a failed run writes nothing.
    std::string fileError;
    if (!session.failure() && options.output)
        fileError = saveDrawing(*options.output);
    if (!session.failure() && fileError.empty() && options.svg)
        fileError = writeSvg(*options.svg);
    sim::app::dynamicLinker().unloadAll();
    closeDrawings();

    if (session.failure()) {
        std::string where = scriptName.empty() ? std::string() : scriptName + ", line " +
                                                                     std::to_string(session.lineNumber()) + ": ";
        return failed(where + sim::toUtf8(*session.failure()));
    }
    if (!fileError.empty())
        return failed(fileError);
    return 0;
}

} // namespace togu::cli
