#include "app/Gui.h"

#include "app/Modules.h"
#include "app/Plotter.h"
#include "host/kernel/Host.h"
#include "host/ui/gui/CheckBoxStyle.h"
#include "host/ui/gui/CommandRunner.h"
#include "host/ui/gui/DesktopColors.h"
#include "host/ui/gui/DrawingFiles.h"
#include "host/ui/gui/DrawingPanels.h"
#include "host/ui/gui/WindowInterface.h"
#include "host/ui/interaction/InteractiveDrawing.h"

#include <QApplication>
#include <QTimer>

#include <clocale>

int runGui(const Options &options)
{
    static int argumentCount = 1; // Qt keeps the addresses
    static char program[] = "lisphost";
    static char *arguments[] = {program, nullptr};
    const QApplication application(argumentCount, arguments);
    std::setlocale(LC_NUMERIC, "C"); // the application takes the user's, but numbers in files and in LISP have a point

    QApplication::setStyle(new CheckBoxStyle(QApplication::style()->name())); // which the application owns
    const std::unique_ptr<QObject> desktopColors = followDesktopColors(useColorScheme);
    Host host;
    host.services().plotter = plotterWith(host.services());
    WindowInterface interface(host.services());
    Document &document = host.documents().open();
    loadModules(host, options);

    CommandRunner runner(interface, document);
    DrawingFiles files(interface.window(), runner, document);
    const InteractiveDrawing drawing(interface, runner, document);
    const DrawingPanels panels(interface.window(), runner, document);
    QObject::connect(&drawing, &InteractiveDrawing::selectionChanged, &panels, &DrawingPanels::refresh);
    interface.window().show();
    // When the event loop runs: programs may ask for input.
    QTimer::singleShot(0, &runner, [&] {
        if (!options.drawingFile.isEmpty())
            files.open(options.drawingFile);
        for (const QString &file : options.operands)
            interface.window().openFile(file);
    });
    return QApplication::exec();
}
