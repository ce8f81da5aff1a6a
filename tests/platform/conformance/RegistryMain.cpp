#include "tests/platform/conformance/RegistryCases.h"

int main()
{
    conformance::Cases cases = registryKeyCases();
    for (const conformance::Cases &more : {registryValueCases(), registryListCases()})
        cases.insert(cases.end(), more.begin(), more.end());
    return conformance::runCases(cases);
}
