// The console's command line.
#include "cli/Options.h"

#include <utility>

namespace togu::cli {

std::optional<Options> parseOptions(const std::vector<std::string>& args, std::string& error)
{
    Options o;
    auto value = [&](size_t& i, std::optional<std::string>& slot) -> bool {
        const std::string& name = args[i];
        if (i + 1 >= args.size() || args[i + 1].empty()) {
            error = "the option " + name + " needs a value";
            return false;
        }
        if (slot) {
            error = "the option " + name + " is given twice";
            return false;
        }
        slot = args[++i];
        return true;
    };
    auto pair = [&](size_t& i, std::optional<std::pair<std::string, std::string>>& slot) -> bool {
        const std::string& name = args[i];
        if (i + 2 >= args.size() || args[i + 1].empty() || args[i + 2].empty()) {
            error = "the option " + name + " needs two files";
            return false;
        }
        if (slot) {
            error = "the option " + name + " is given twice";
            return false;
        }
        slot = std::make_pair(args[i + 1], args[i + 2]);
        i += 2;
        return true;
    };
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        bool ok = true;
        if (a == "-h" || a == "--help")
            o.help = true;
        else if (a == "-s" || a == "--script")
            ok = value(i, o.script);
        else if (a == "-o" || a == "--output")
            ok = value(i, o.output);
        else if (a == "--svg")
            ok = value(i, o.svg);
        else if (a == "--install")
            ok = value(i, o.install);
        else if (a == "--registry")
            ok = value(i, o.registry);
        else if (a == "--recover")
            o.recover = true;
        else if (a == "--batch")
            ok = value(i, o.batch);
        else if (a == "--out-dir")
            ok = value(i, o.outDir);
        else if (a == "-j") {
            std::optional<std::string> n;
            ok = value(i, n);
            if (ok && (n->find_first_not_of("0123456789") != std::string::npos || n->size() > 3 || std::stoi(*n) < 1)) {
                error = "the option -j needs a number of drawings at a time, not " + *n;
                return std::nullopt;
            }
            if (ok)
                o.jobs = std::stoi(*n);
        } else if (a == "--catalogue-export")
            ok = pair(i, o.catalogueExport);
        else if (a == "--catalogue-import")
            ok = pair(i, o.catalogueImport);
        else if (a.size() > 1 && a[0] == '-') {
            error = "unknown option " + a;
            return std::nullopt;
        } else if (o.batch && !a.empty()) {
            o.batchFiles.push_back(a);
        } else if (o.drawing) {
            error = "only one drawing can be opened, not " + a;
            return std::nullopt;
        } else if (a.empty()) {
            error = "the drawing's name is empty";
            return std::nullopt;
        } else {
            o.drawing = a;
        }
        if (!ok)
            return std::nullopt;
    }
    if (o.batch) {
        // Files named before --batch were taken as the one drawing of a plain run.
        if (o.drawing)
            o.batchFiles.insert(o.batchFiles.begin(), *std::exchange(o.drawing, std::nullopt));
        if (o.batchFiles.empty() || o.script || o.output || o.svg) {
            error = "a batch run takes a script and the drawings, without -s, -o or --svg";
            return std::nullopt;
        }
    } else if (o.outDir || o.jobs != 1) {
        error = "--out-dir and -j belong to a batch run (--batch SCRIPT)";
        return std::nullopt;
    }
    const bool conversion = o.catalogueExport || o.catalogueImport;
    if (conversion && (o.drawing || o.batch || o.recover || o.script || o.output || o.svg || o.install || o.registry ||
                       (o.catalogueExport && o.catalogueImport))) {
        error = "a catalogue conversion runs alone, without a drawing, a script or other options";
        return std::nullopt;
    }
    return o;
}

std::string usage()
{
    return "usage: togu [--recover] [drawing.dxf] [-s script] [-o out.dxf] [--svg out.svg] [--install DIR] [--registry DIR]\n"
           "  drawing.dxf     the drawing to work on (default: a new drawing in millimetres)\n"
           "  --recover       read a damaged drawing, repairing what must be and printing each repair\n"
           "  -s script       run the script's lines (default: type them at the keyboard)\n"
           "  -o out.dxf      save the drawing there at the end\n"
           "  --svg out.svg   draw the drawing there as an SVG picture at the end\n"
           "  --install DIR   the installation folder with the support files (default: the shipped data)\n"
           "  --registry DIR  the folder of the registry's .reg files (default: ~/.config/togu)\n"
           "       togu --batch SCRIPT [--out-dir DIR] [-j N] FILES... [--install DIR] [--registry DIR]\n"
           "  --batch SCRIPT  run the script over each drawing, each in a process of its own; a log beside each output\n"
           "  --out-dir DIR   save the drawings there (default: each over its own file)\n"
           "  -j N            run N drawings at a time (default: 1)\n"
           "       togu --catalogue-export FILE.tgp OUT.csv | --catalogue-import IN.csv OUT.tgp\n"
           "  --catalogue-export  write a pipe catalogue as text (UTF-8, semicolons, one line per profile)\n"
           "  --catalogue-import  make a pipe catalogue from such text; a bad line is named, nothing is written\n";
}

} // namespace togu::cli
