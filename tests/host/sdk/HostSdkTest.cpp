#include "host/sdk/HostSdk.h"

#include "sdk/fx/CFxSystemServices.h"
#include "sdk/oda/OdAlloc.h"
#include "tests/support/RecordingHost.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

class Services final : public CFxSystemServices
{
    CFxDocumentManager *documentManager() override { return nullptr; }
    QWidget *mainWindow() override { return nullptr; }
    void htmlPrompt(const CFxString &, bool) override {}
    void message(const CFxString &) override {}
};

std::size_t requested = 0;

void *recordingAllocate(std::size_t size)
{
    requested = size;
    return std::malloc(size);
}

} // namespace

TEST(HostSdk, HasNothingBehindItAtStart)
{
    EXPECT_EQ(GetFxSystemServices(), nullptr);
    EXPECT_EQ(ACTIVE_DOCUMENT(), nullptr);
}

TEST(HostSdk, GivesTheServicesThatAreInstalled)
{
    Services services;
    HostSdk::installSystemServices(&services);
    EXPECT_EQ(GetFxSystemServices(), &services);
    HostSdk::installSystemServices(nullptr);
    EXPECT_EQ(GetFxSystemServices(), nullptr);
}

TEST(HostSdk, AsksTheProviderForTheActiveDocument)
{
    {
        RecordingHost host; // installs itself
        EXPECT_EQ(ACTIVE_DOCUMENT(), host.document());
    }
    EXPECT_EQ(ACTIVE_DOCUMENT(), nullptr);
}

TEST(HostSdk, AllocatesThroughTheAllocatorThatIsInstalled)
{
    HostSdk::installAllocator({recordingAllocate, std::free});
    void *memory = odrxAlloc(42);
    HostSdk::installAllocator({std::malloc, std::free});
    EXPECT_NE(memory, nullptr);
    EXPECT_EQ(requested, 42u);
    odrxFree(memory);
    odrxFree(nullptr);
}
