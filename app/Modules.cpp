#include "app/Modules.h"

#include "app/system/Process.h"
#include "host/kernel/Host.h"

void loadModules(Host &host, const Options &options)
{
    const QString besideProgram = programFolder() + QStringLiteral("/LispExtension.tx");
    for (const QString &module : options.modules.value_or(std::vector<QString>{besideProgram}))
        host.modules().load(module);
}
