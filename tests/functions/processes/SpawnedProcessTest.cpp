// What becomes of a spawned process: whose it is, and how long it is waited for.

#include "functions/processes.h"

#include "host/sdk/HostSdk.h"
#include "sdk/fx/CFxSystemServices.h"
#include "tests/support/HandlerTest.h"

#include <QApplication>
#include <QProcess>
#include <QWidget>

namespace {

std::vector<int> waits; // in milliseconds

} // namespace

// In place of Qt's own in this program: nobody waits for 30 seconds here.
bool QProcess::waitForFinished(int milliseconds)
{
    waits.push_back(milliseconds);
    return false;
}

namespace {

// A host whose main widget stands in a window.
class Services final : public CFxSystemServices
{
public:
    Services() { HostSdk::installSystemServices(this); }
    ~Services() { HostSdk::installSystemServices(nullptr); }

    CFxDocumentManager *documentManager() override { return nullptr; }
    void message(const CFxString &) override {}
    QWidget *mainWindow() override { return &m_widget; }
    void htmlPrompt(const CFxString &, bool) override {}

    QWidget window;

private:
    QWidget m_widget{&window};
};

class SpawnedProcess : public HandlerTest
{
protected:
    SpawnedProcess() { waits.clear(); }

    void spawn(std::int16_t mode) { call(acetSysSpawn, {shortInteger(mode), text(u"true")}); }

private:
    int m_count = 3;
    char m_name[16] = "test", m_option[16] = "-platform", m_platform[16] = "offscreen";
    char *m_arguments[4] = {m_name, m_option, m_platform, nullptr};
    QApplication m_application{m_count, m_arguments};

protected:
    Services m_services;
};

} // namespace

TEST_F(SpawnedProcess, IsTheTopLevelWindowsAndNotDeleted)
{
    spawn(2);
    const QList<QProcess *> processes = m_services.window.findChildren<QProcess *>();
    ASSERT_EQ(processes.size(), 1);
    EXPECT_EQ(processes[0]->parent(), &m_services.window);
}

TEST_F(SpawnedProcess, IsWaitedForUpTo30SecondsInModes1And3AndNotAtAllInOthers)
{
    spawn(1);
    EXPECT_EQ(waits, std::vector<int>{30'000});
    spawn(3);
    EXPECT_EQ(waits, (std::vector<int>{30'000, 30'000}));
    spawn(2);
    spawn(4);
    EXPECT_EQ(waits.size(), 2U);
}
