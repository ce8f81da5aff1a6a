#include "tests/module/ModuleTest.h"

#include <algorithm>

namespace {

class Reactor : public ModuleTest
{
protected:
    RecordingHost m_host{RecordingHost::ReachedBy::GivenDocument};
};

class DocumentWithoutInterpreter final : public CFxDocument
{
    LispHost *lispHost() override { return nullptr; }
    OdDbDatabase *database() override { return nullptr; }
    CFxUserInput *userInput() override { return nullptr; }
    QWidget *window() override { return nullptr; }
};

} // namespace

TEST_F(Reactor, DefinesTheFunctionsWhenADocumentGetsItsInterpreter)
{
    reactor()->DocumentLispLoaded(m_host.document());
    EXPECT_EQ(m_host.operations(), definitions());
    EXPECT_TRUE(std::ranges::equal(m_host.definedHandlers(), functionTable(), {}, {}, &FunctionRow::handler));
}

TEST_F(Reactor, RemovesThemWhenTheInterpreterGoesAway)
{
    reactor()->DocumentLispUnloaded(m_host.document());
    EXPECT_EQ(m_host.operations(), removals());
}

TEST_F(Reactor, PassesOverADocumentThatHasNoInterpreter)
{
    DocumentWithoutInterpreter document;
    reactor()->DocumentLispLoaded(&document);
    reactor()->DocumentLispUnloaded(&document);
    EXPECT_EQ(m_host.operations(), Operations{});
}

TEST_F(Reactor, DoesNothingAtAnyOtherNotification)
{
    CFxDocument *document = m_host.document();
    reactor()->DocumentCreateStarted(document);
    reactor()->DocumentCreated(document);
    reactor()->DocumentToBeDestroyed(document);
    reactor()->DocumentDestroyed(u"file.dwg");
    reactor()->DocumentToBeActivated(document);
    reactor()->DocumentToBeDeactivated(document);
    reactor()->DocumentActivated(document);
    reactor()->DocumentCreateCanceled(document);
    reactor()->DocumentBecameCurrent(document);
    reactor()->DocumentActivationModified(true);
    reactor()->DocumentPreOpen(u"file.dwg");
    EXPECT_EQ(m_host.operations(), Operations{});
}
