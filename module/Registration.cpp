#include "module/Registration.h"

#include "lisp/LispHost.h"
#include "module/FunctionTable.h"
#include "sdk/fx/CFxDocument.h"
#include "sdk/fx/CFxString.h"

#include <string_view>

namespace {

// The name to remove for a row; null when the row is passed over. The doubled letter is no slip of this code.
const char *unregisteredName(const char *name)
{
    if (name == std::string_view("acet-ini-set"))
        return "aacet-ini-set";
    if (name == std::string_view("acet-ui-message-html"))
        return nullptr;
    return name;
}

} // namespace

// The interpreter is fetched anew for every row: defining a function may run code of the host. A document without one
// has no functions; it gets them when it reports its interpreter.
void registerFunctions(CFxDocument *document)
{
    for (const FunctionRow &row : functionTable()) {
        LispHost *host = document->lispHost();
        if (host == nullptr)
            return;
        const CFxString name = CFxString::from_ansi_str(row.name);
        host->defun(name.wide_strU(), row.handler);
    }
}

void unregisterFunctions(CFxDocument *document)
{
    for (const FunctionRow &row : functionTable()) {
        const char *ansiName = unregisteredName(row.name);
        if (ansiName == nullptr)
            continue;
        LispHost *host = document->lispHost();
        if (host == nullptr)
            return;
        const CFxString name = CFxString::from_ansi_str(ansiName);
        host->undefun(name.wide_strU());
    }
}
