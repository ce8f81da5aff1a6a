#include "host/sdk/HostSdk.h"
#include "tests/module/ModuleTest.h"

#include <cstdlib>
#include <new>

namespace {

int library; // its address serves as a library handle
int allocations = 0;
int handlerCalls = 0;

void *failingAllocate(std::size_t)
{
    ++allocations;
    return nullptr;
}

class Factory : public testing::Test
{
protected:
    ~Factory() override
    {
        std::set_new_handler(nullptr);
        HostSdk::installAllocator({std::malloc, std::free});
    }

    static void failAllocations()
    {
        allocations = 0;
        HostSdk::installAllocator({failingAllocate, std::free});
    }

    void *m_sysData = &library;
};

} // namespace

TEST_F(Factory, TakesTheLibraryHandleOver)
{
    OdRxModule *module = odrxCreateModuleObject(&m_sysData);
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(module->sysData(), &library);
    EXPECT_EQ(m_sysData, nullptr);
    EXPECT_EQ(module->numRefs(), 0);
    module->deleteModule();
}

TEST_F(Factory, GivesTheExistingInstanceAndLeavesTheArgumentAlone)
{
    OdRxModule *module = odrxCreateModuleObject(&m_sysData);
    int otherLibrary;
    void *otherSysData = &otherLibrary;
    EXPECT_EQ(odrxCreateModuleObject(&otherSysData), module);
    EXPECT_EQ(otherSysData, &otherLibrary);
    EXPECT_EQ(module->sysData(), &library);
    module->deleteModule();
}

TEST_F(Factory, MakesANewInstanceAfterDeletion)
{
    odrxCreateModuleObject(&m_sysData)->deleteModule();
    int otherLibrary;
    void *otherSysData = &otherLibrary;
    OdRxModule *module = odrxCreateModuleObject(&otherSysData);
    EXPECT_EQ(module->sysData(), &otherLibrary);
    module->deleteModule();
}

TEST_F(Factory, WithoutMemoryAndWithoutANewHandlerThrows)
{
    failAllocations();
    EXPECT_THROW(odrxCreateModuleObject(&m_sysData), std::bad_alloc);
    EXPECT_EQ(m_sysData, &library);
}

TEST_F(Factory, WithoutMemoryCallsANewHandlerOnceAndGivesNothing)
{
    failAllocations();
    handlerCalls = 0;
    std::set_new_handler([] { ++handlerCalls; });
    EXPECT_EQ(odrxCreateModuleObject(&m_sysData), nullptr);
    EXPECT_EQ(handlerCalls, 1);
    EXPECT_EQ(allocations, 1) << "no second attempt";
    EXPECT_EQ(m_sysData, nullptr);
}

TEST_F(Factory, CountsReferencesAndNeverDeletesByThem)
{
    OdRxModule *module = odrxCreateModuleObject(&m_sysData);
    module->addRef();
    module->addRef();
    EXPECT_EQ(module->numRefs(), 2);
    module->release();
    module->release();
    module->release();
    EXPECT_EQ(module->numRefs(), -1);
    EXPECT_EQ(odrxCreateModuleObject(&m_sysData), module);
    module->deleteModule();
}

TEST_F(Factory, GetApiVersionYields26And8And0And54758)
{
    int version[4] = {};
    odrxGetAPIVersion(&version[0], &version[1], &version[2], &version[3]);
    EXPECT_EQ(std::vector<int>(version, version + 4), (std::vector<int>{26, 8, 0, 54758}));
}
