#pragma once

#include "module/CLispExtensionModule.h"
#include "module/FunctionTable.h"
#include "tests/support/RecordingHost.h"

#include <gtest/gtest.h>

extern "C" OdRxModule *odrxCreateModuleObject(void **sysData);
extern "C" void odrxGetAPIVersion(int *major, int *minor, int *majorBuild, int *minorBuild);

// The module's one object, made before the test and deleted after it.
class ModuleTest : public testing::Test
{
protected:
    ~ModuleTest() override { m_module->deleteModule(); }

    OdRxModule &module() { return *m_module; }
    CFxDocumentManagerReactor *reactor() { return static_cast<CLispExtensionModule *>(m_module); }

    // What a document records when the function table is defined in it.
    static Operations definitions()
    {
        Operations operations;
        for (const FunctionRow &row : functionTable())
            operations.push_back(operation("defun", row.name));
        return operations;
    }

    // And when it is removed: with the two deliberate deviations.
    static Operations removals()
    {
        Operations operations;
        for (const FunctionRow &row : functionTable()) {
            if (row.name == std::string("acet-ini-set"))
                operations.push_back(operation("undefun", "aacet-ini-set"));
            else if (row.name != std::string("acet-ui-message-html"))
                operations.push_back(operation("undefun", row.name));
        }
        return operations;
    }

private:
    void *m_sysData = nullptr;
    OdRxModule *m_module = odrxCreateModuleObject(&m_sysData);
};
