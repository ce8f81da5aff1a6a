#include "tests/module/FakeDocumentManager.h"
#include "tests/module/ModuleTest.h"

namespace {

class Lifecycle : public ModuleTest
{
protected:
    FakeDocumentManager m_manager;
};

} // namespace

TEST_F(Lifecycle, InitAppWithNoOpenDocumentsInstallsTheReactorAndDefinesNothingUntilADocumentReportsItsInterpreter)
{
    module().initApp();
    EXPECT_EQ(m_manager.reactors(), std::vector{reactor()});
    RecordingHost &document = m_manager.open();
    EXPECT_EQ(document.operations(), Operations{});
    reactor()->DocumentLispLoaded(document.document());
    EXPECT_EQ(document.operations(), definitions());
}

TEST_F(Lifecycle, InitAppDefinesTheTableInEveryOpenDocument)
{
    const RecordingHost &first = m_manager.open();
    const RecordingHost &second = m_manager.open();
    module().initApp();
    EXPECT_EQ(first.operations(), definitions());
    EXPECT_EQ(second.operations(), definitions());
}

TEST_F(Lifecycle, StatusesOfDefunAndUndefunAreNotChecked)
{
    RecordingHost &document = m_manager.open();
    document.setAnswer("defun", -5001);
    document.setAnswer("undefun", -5001);
    module().initApp();
    EXPECT_EQ(document.operations(), definitions());
    document.setArguments({});
    module().uninitApp();
    EXPECT_EQ(document.operations(), removals());
}

TEST_F(Lifecycle, TheCountOfDocumentsIsReadAgainAfterEachOne)
{
    const RecordingHost &first = m_manager.open();
    const RecordingHost *second = nullptr;
    m_manager.whenVisited([&](std::size_t index) {
        if (index == 0)
            second = &m_manager.open();
    });
    module().initApp();
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(first.operations(), definitions());
    EXPECT_EQ(second->operations(), definitions());
}

TEST_F(Lifecycle, ADocumentThatIsClosedMeanwhileIsNotVisited)
{
    RecordingHost &first = m_manager.open();
    m_manager.open();
    module().initApp();
    m_manager.whenVisited([this](std::size_t index) {
        ASSERT_EQ(index, 0u);
        m_manager.close(1);
    });
    first.setArguments({});
    module().uninitApp();
    EXPECT_EQ(first.operations(), removals());
}

TEST_F(Lifecycle, AfterUninitAppAcetIniSetAndAcetUiMessageHtmlAreStillDefinedAndEveryOtherNameIsGone)
{
    RecordingHost &document = m_manager.open();
    module().initApp();
    document.setArguments({});
    module().uninitApp();
    EXPECT_EQ(document.operations(), removals());
    EXPECT_EQ(document.operations().size(), 74u);
    EXPECT_EQ(std::ranges::count(document.operations(), operation("undefun", "acet-ini-set")), 0);
    EXPECT_EQ(std::ranges::count(document.operations(), operation("undefun", "acet-ui-message-html")), 0);
    EXPECT_EQ(document.operations().at(10), operation("undefun", "aacet-ini-set"));
    EXPECT_EQ(m_manager.reactors().size(), 0u);
}

TEST_F(Lifecycle, WithoutADocumentManagerNothingIsDone)
{
    const RecordingHost &document = m_manager.open();
    m_manager.disappear();
    module().initApp();
    module().uninitApp();
    EXPECT_EQ(document.operations(), Operations{});
    EXPECT_EQ(m_manager.reactors().size(), 0u);
}

TEST_F(Lifecycle, WithoutSystemServicesNothingIsDone)
{
    const RecordingHost &document = m_manager.open();
    HostSdk::installSystemServices(nullptr);
    module().initApp();
    module().uninitApp();
    EXPECT_EQ(document.operations(), Operations{});
}
