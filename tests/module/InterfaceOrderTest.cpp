#include "sdk/fx/CFxDocumentManagerReactor.h"
#include "sdk/oda/OdRxModule.h"
#include "tests/support/VirtualTable.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace {

std::vector<std::size_t> inTurn(std::size_t first, std::size_t count)
{
    std::vector<std::size_t> places(count);
    std::iota(places.begin(), places.end(), first);
    return places;
}

} // namespace

TEST(InterfaceOrder, OfTheModuleIsTheLoaders)
{
    using Module = OdRxModule;
    const std::vector<std::size_t> places = {placeOf(&Module::addRef),       placeOf(&Module::release),
                                             placeOf(&Module::numRefs),      placeOf(&Module::sysData),
                                             placeOf(&Module::deleteModule), placeOf(&Module::initApp),
                                             placeOf(&Module::uninitApp),    placeOf(&Module::moduleName)};
    EXPECT_EQ(places, inTurn(0, 8));
}

TEST(InterfaceOrder, OfTheNotificationsIsTheHosts)
{
    using Reactor = CFxDocumentManagerReactor;
    const std::vector<std::size_t> places = {
        placeOf(&Reactor::DocumentCreateStarted), placeOf(&Reactor::DocumentCreated),
        placeOf(&Reactor::DocumentToBeDestroyed), placeOf(&Reactor::DocumentDestroyed),
        placeOf(&Reactor::DocumentLispLoaded),    placeOf(&Reactor::DocumentLispUnloaded),
        placeOf(&Reactor::DocumentToBeActivated), placeOf(&Reactor::DocumentToBeDeactivated),
        placeOf(&Reactor::DocumentActivated),     placeOf(&Reactor::DocumentCreateCanceled),
        placeOf(&Reactor::DocumentBecameCurrent), placeOf(&Reactor::DocumentActivationModified),
        placeOf(&Reactor::DocumentPreOpen)};
    EXPECT_EQ(places, inTurn(3, 13)) << "behind the three operations of every object";
}
