#include "app/CommandLine.h"

#include "app/system/Process.h"
#include "host/render/PlotFile.h"

#include <QStringDecoder>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <iterator>
#include <limits>
#include <string>

namespace {

std::vector<QString> toQStrings(const std::vector<std::string> &texts)
{
    std::vector<QString> result;
    result.reserve(texts.size());
    for (const std::string &text : texts)
        result.push_back(QString::fromStdString(text));
    return result;
}

// Paths and texts are Unicode here; bytes that are none would name another file.
bool isUtf8(const std::string &argument)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(QByteArrayView(argument));
    return !decoder.hasError();
}

// In the form that the parser wants: a text that says what is wrong, or none.
std::string isPlotFile(const std::string &path)
{
    return render::plotFormat(QString::fromStdString(path)) ? std::string() : "the file must end in .png, .svg or .pdf";
}

// Whole numbers from `least` on; help shows the kind.
CLI::Validator wholeNumberFrom(int least, const std::string &kind)
{
    return CLI::Range(least, std::numeric_limits<int>::max(), kind);
}

} // namespace

ParsedCommandLine parseCommandLine(const std::vector<std::string> &arguments)
{
    if (!std::all_of(arguments.begin(), arguments.end(), isUtf8)) {
        std::cerr << "lisphost: the arguments have to be UTF-8\n";
        return {{}, ExitUsage};
    }
    // What follows -- is the LISP program's own and never seen by the parser.
    const auto separator = std::find(arguments.begin(), arguments.end(), "--");

    CLI::App app("Runs, tests and debugs AutoLISP programs.", "lisphost");
    app.set_version_flag("--version", "lisphost " LISPHOST_VERSION);
    app.allow_windows_style_options(false); // "/folder/file.lsp" is a path on every system
    app.fallthrough();
    app.require_subcommand(0, 1);
    std::vector<std::string> files, expressions, modules;
    std::string name, registryFile, profile, drawing, save, plot, layout, answers, transcript, junit;
    bool noModule = false, reportsAsTap = false;
    app.add_option("--module", modules, "load this module (repeatable) instead of the one beside the program")
        ->type_name("FILE.tx")
        ->allow_extra_args(false);
    app.add_flag("--no-module", noModule, "load no module")->excludes("--module");
    app.add_option("--profile", profile, "keep settings and history in this folder; else LISPHOST_PROFILE names it")
        ->type_name("DIR");
    app.add_option("--drawing", drawing, "open this drawing instead of an empty one")->type_name("FILE.dxf");
    app.add_option("--save", save, "write the drawing to this file when the programs have run")->type_name("FILE.dxf");
    CLI::Option *plotted = app.add_option("--plot", plot, "draw the drawing into this file when the programs have run")
                               ->type_name("FILE.png|svg|pdf")
                               ->check(isPlotFile);
    app.add_option("--layout", layout, "draw this layout, or Model")->type_name("NAME")->needs(plotted);
    app.add_option("--answers", answers, "answer the programs' requests from this file")->type_name("FILE");
    app.add_option("--transcript", transcript, "write requests, dialogs and launches to this file; -: standard error")
        ->type_name("FILE");

    SandboxOptions sandbox;
    std::vector<std::string> writable, runnable;
    bool isSandboxed = false;
    CLI::Option *sandboxed = app.add_flag(
        "--sandbox", isSandboxed, "run a program that is not trusted: it reads its own folder and writes nothing");
    app.add_option("--allow-write", writable, "let it write in this folder, too (repeatable)")
        ->type_name("DIR")
        ->allow_extra_args(false)
        ->needs(sandboxed);
    app.add_option("--allow-run", runnable, "let it start this program (repeatable)")
        ->type_name("PROG")
        ->allow_extra_args(false)
        ->needs(sandboxed);
    app.add_option("--limit-time", sandbox.seconds, "end it after this time; 0: never")
        ->type_name("SECONDS")
        ->check(wholeNumberFrom(0, "NONNEGATIVE"))
        ->capture_default_str()
        ->needs(sandboxed);
    app.add_option("--limit-memory", sandbox.megabytes, "fail it when its data need more; 0: never")
        ->type_name("MEGABYTES")
        ->check(wholeNumberFrom(0, "NONNEGATIVE"))
        ->capture_default_str()
        ->needs(sandboxed);
    app.add_option("--limit-depth", sandbox.depth, "fail it when calls nest deeper")
        ->type_name("CALLS")
        ->check(wholeNumberFrom(1, "POSITIVE"))
        ->capture_default_str()
        ->needs(sandboxed);

    CLI::App *run = app.add_subcommand(
        "run", "Load programs in order. They find what follows -- as a list of strings in *arguments*.");
    run->add_option("files", files)->type_name("FILE.lsp")->required();
    CLI::App *eval = app.add_subcommand("eval", "Evaluate expressions and print each value.");
    eval->add_option("expressions", expressions)->type_name("EXPR")->required();
    CLI::App *test = app.add_subcommand("test", "Run the tests in programs, and in folders with programs.");
    test->add_option("paths", files)->type_name("PATH")->required();
    test->add_option("--junit", junit, "write the results to this file, too, in JUnit's XML")->type_name("FILE");
    test->add_flag("--tap", reportsAsTap, "report in the Test Anything Protocol");
    int secondsForATest = 0;
    test->add_option("--timeout", secondsForATest, "fail a test that runs longer; 0: never")
        ->type_name("SECONDS")
        ->check(wholeNumberFrom(0, "NONNEGATIVE"))
        ->capture_default_str();
    CLI::App *repl = app.add_subcommand("repl", "Read expressions and print their values; the default on a terminal.");
    CLI::App *gui = app.add_subcommand("gui", "Show the window; open drawings and load programs.");
    gui->add_option("files", files)->type_name("FILE.lsp|FILE.dxf");
    CLI::App *doc = app.add_subcommand("doc", "Tell what is known about a function, or list all functions.");
    doc->add_option("name", name)->type_name("NAME");
    CLI::App *registry = app.add_subcommand("registry", "Exchange registry keys as text with Windows' own tools.");
    registry->require_subcommand(1);
    CLI::App *registryExport = registry->add_subcommand("export", "Write keys, or the whole registry, to a file.");
    registryExport->add_option("file", registryFile)->type_name("FILE.reg")->required();
    registryExport->add_option("keys", expressions)->type_name("KEY");
    CLI::App *registryImport = registry->add_subcommand("import", "Take over what a file says, all or nothing.");
    registryImport->add_option("file", registryFile)->type_name("FILE.reg")->required();

    ParsedCommandLine parsed;
    try {
        std::vector<std::string> reversed(std::make_reverse_iterator(separator), arguments.rend() - 1);
        app.parse(std::move(reversed));
    } catch (const CLI::ParseError &error) {
        parsed.exitStatus = app.exit(error) == 0 ? ExitFine : ExitUsage;
        return parsed;
    }

    Options &options = parsed.options;
    if (run->parsed()) {
        options.command = Options::Command::Run;
        options.operands = toQStrings(files);
    } else if (eval->parsed()) {
        options.command = Options::Command::Eval;
        options.operands = toQStrings(expressions);
    } else if (test->parsed()) {
        options.command = Options::Command::Test;
        options.operands = toQStrings(files);
        if (!save.empty() || !plot.empty()) {
            std::cerr << "lisphost: --save and --plot are not for test, where each test has a drawing of its own\n";
            parsed.exitStatus = ExitUsage;
        }
    } else if (gui->parsed()) {
        options.command = Options::Command::Gui;
        options.operands = toQStrings(files);
    } else if (doc->parsed()) {
        options.command = Options::Command::Doc;
        if (!name.empty())
            options.operands = toQStrings({name});
    } else if (registry->parsed()) {
        options.command =
            registryExport->parsed() ? Options::Command::RegistryExport : Options::Command::RegistryImport;
        options.operands = toQStrings(expressions);
        options.operands.insert(options.operands.begin(), QString::fromStdString(registryFile));
    } else if (!repl->parsed() && !isTerminal(stdin)) {
        std::cerr << "lisphost: a command is needed when standard input is no terminal\n" << app.help();
        parsed.exitStatus = ExitUsage;
    }
    if (isSandboxed) {
        if (!run->parsed() && !eval->parsed() && !test->parsed()) {
            std::cerr << "lisphost: --sandbox is for run, eval and test\n";
            parsed.exitStatus = ExitUsage;
        }
        sandbox.writableFolders = toQStrings(writable);
        sandbox.runnablePrograms = toQStrings(runnable);
        options.sandbox = sandbox;
    }
    if (separator != arguments.end())
        options.programArguments = toQStrings({separator + 1, arguments.end()});
    if (noModule || !modules.empty())
        options.modules = toQStrings(modules);
    options.profileFolder =
        profile.empty() ? qEnvironmentVariable("LISPHOST_PROFILE") : QString::fromStdString(profile);
    options.drawingFile = QString::fromStdString(drawing);
    options.saveFile = QString::fromStdString(save);
    options.plotFile = QString::fromStdString(plot);
    options.plotLayout = QString::fromStdString(layout);
    options.answersFile = QString::fromStdString(answers);
    options.junitFile = QString::fromStdString(junit);
    options.reportsAsTap = reportsAsTap;
    options.secondsForATest = secondsForATest;
    options.transcriptFile = QString::fromStdString(transcript);
    return parsed;
}
