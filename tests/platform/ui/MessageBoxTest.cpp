#include "tests/platform/ui/MessageBoxTest.h"

#include "host/sdk/HostSdk.h"
#include "sdk/fx/CFxSystemServices.h"

#include <QApplication>

// What the call does beside its box.

namespace {

class MessageBox : public MessageBoxTest
{
};

class CountingServices final : public CFxSystemServices
{
public:
    CountingServices() { HostSdk::installSystemServices(this); }
    ~CountingServices() { HostSdk::installSystemServices(nullptr); }

    CFxDocumentManager *documentManager() override { return nullptr; }
    void message(const CFxString &) override {}
    QWidget *mainWindow() override
    {
        ++requests;
        return nullptr;
    }
    void htmlPrompt(const CFxString &, bool) override {}

    int requests = 0;
};

} // namespace

TEST_F(MessageBox, WithButtonsThatDoNotExistIsNotShown)
{
    for (UINT type = MB_CANCELTRYCONTINUE + 1; type <= MB_TYPEMASK; ++type) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(MessageBoxW(nullptr, u"text", u"caption", type), 0) << type;
        EXPECT_EQ(GetLastError(), ERROR_INVALID_MSGBOX_STYLE);
    }
    EXPECT_EQ(person().shown(), 0);
}

TEST_F(MessageBox, OfAServiceMustNotHaveAnOwner)
{
    QWidget owner;
    EXPECT_EQ(MessageBoxW(&owner, u"text", u"caption", MB_SERVICE_NOTIFICATION), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_MSGBOX_STYLE);
    EXPECT_EQ(show(MB_SERVICE_NOTIFICATION, press(u"OK"_qs)), IDOK);
}

TEST_F(MessageBox, ThatGoesAwayWithoutAButtonGives0)
{
    EXPECT_EQ(show(MB_YESNO, [](QDialog &dialog) { dialog.done(QDialog::Rejected); }), 0);
}

TEST_F(MessageBox, ShowsTextsThatBeginWithAByteOrderMarkWhole)
{
    person().expect([](QDialog &dialog) {
        EXPECT_EQ(dynamic_cast<QMessageBox &>(dialog).text(), u"\uFEFFtext"_qs);
        EXPECT_EQ(dialog.windowTitle(), u"\uFEFFcaption"_qs);
        press(u"OK"_qs)(dialog);
    });
    EXPECT_EQ(MessageBoxW(nullptr, u"\uFEFFtext", u"\uFEFFcaption", MB_OK), IDOK);
}

TEST_F(MessageBox, MayBeShownFromTheAnswerToAnother)
{
    int inner = 0;
    person().expect([&](QDialog &outer) {
        inner = show(MB_YESNO, press(u"&No"_qs));
        press(u"OK"_qs)(outer);
    });
    EXPECT_EQ(MessageBoxW(nullptr, u"text", u"caption", MB_OK), IDOK);
    EXPECT_EQ(inner, IDNO);
}

TEST(ActiveWindow, IsNullWhileNoWindowOfTheProgramHasTheFocus)
{
    EXPECT_EQ(GetActiveWindow(), nullptr);
}

TEST(ActiveWindow, IsTheOneWithTheFocus)
{
    QWidget window;
    window.show();
    QApplication::setActiveWindow(&window);
    EXPECT_EQ(GetActiveWindow(), &window);
}

TEST(ActiveWindow, LetsTheHostMakeItsWindowsFirst)
{
    CountingServices services;
    GetActiveWindow();
    EXPECT_EQ(services.requests, 1);
}
