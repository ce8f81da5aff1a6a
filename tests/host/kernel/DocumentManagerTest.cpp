#include "host/kernel/Host.h"

#include "sdk/fx/CFxDocumentManagerReactor.h"
#include "sdk/oda/OdRxModule.h"

#include <QDir>
#include <QFileInfo>
#include <QLibrary>

#include <gmock/gmock.h>

#include <string>
#include <vector>

using testing::ElementsAre;

namespace {

class RecordingReactor final : public CFxDocumentManagerReactor
{
public:
    void addRef() override {}
    void release() override {}
    long numRefs() const override { return 0; }

    void DocumentCreateStarted(CFxDocument *) override { events.push_back("create started"); }
    void DocumentCreated(CFxDocument *) override { events.push_back("created"); }
    void DocumentToBeDestroyed(CFxDocument *) override { events.push_back("to be destroyed"); }
    void DocumentDestroyed(const char16_t *) override { events.push_back("destroyed"); }
    void DocumentLispLoaded(CFxDocument *document) override
    {
        events.push_back("lisp loaded");
        EXPECT_NE(document->lispHost(), nullptr);
    }
    void DocumentLispUnloaded(CFxDocument *document) override
    {
        events.push_back("lisp unloaded");
        EXPECT_NE(document->lispHost(), nullptr);
    }
    void DocumentActivated(CFxDocument *) override { events.push_back("activated"); }
    void DocumentToBeDeactivated(CFxDocument *) override { events.push_back("to be deactivated"); }

    std::vector<std::string> events;
};

} // namespace

TEST(DocumentManager, tellsReactorsOfOpeningAndClosing)
{
    Host host;
    RecordingReactor reactor;
    host.documents().addReactor(&reactor);
    Document &first = host.documents().open();
    EXPECT_THAT(reactor.events, ElementsAre("create started", "created", "lisp loaded", "activated"));
    EXPECT_EQ(ACTIVE_DOCUMENT(), &first);
    reactor.events.clear();
    Document &second = host.documents().open();
    EXPECT_EQ(host.documents().documentCount(), 2);
    EXPECT_EQ(host.documents().documentAt(1), &second);
    EXPECT_EQ(host.documents().documentAt(2), nullptr);
    reactor.events.clear();
    host.documents().close(second);
    EXPECT_THAT(reactor.events, ElementsAre("to be destroyed", "lisp unloaded", "destroyed", "activated"));
    EXPECT_EQ(ACTIVE_DOCUMENT(), &first);
    host.documents().removeReactor(&reactor);
    reactor.events.clear();
    host.documents().close(first);
    EXPECT_TRUE(reactor.events.empty());
    EXPECT_EQ(ACTIVE_DOCUMENT(), nullptr);
}

TEST(DocumentManager, documentsHaveNamespacesOfTheirOwn)
{
    Host host;
    Document &first = host.documents().open();
    Document &second = host.documents().open();
    first.machine().load(u"(setq x 1)", u"");
    EXPECT_TRUE(second.machine().intern(u"x")->value.isNil());
}

TEST(Host, isWhatTheEntranceFunctionsLeadToWhileItLives)
{
    {
        Host host;
        EXPECT_EQ(GetFxSystemServices(), &host);
        EXPECT_EQ(GetFxSystemServices()->documentManager(), &host.documents());
        EXPECT_EQ(ACTIVE_DOCUMENT(), nullptr);
    }
    EXPECT_EQ(GetFxSystemServices(), nullptr);
}

TEST(ModuleLoader, refusesWhatIsNoModule)
{
    Host host;
    EXPECT_THROW(host.modules().load(QStringLiteral("/no/such/module.tx")), ModuleError);
    EXPECT_THROW(host.modules().load(QStringLiteral("libc.so.6")), ModuleError);
    EXPECT_TRUE(host.modules().paths().isEmpty());
    EXPECT_FALSE(host.loadModule(u"/no/such/module.tx"));
}

TEST(ModuleLoader, refusesToLoadAModuleTwice)
{
    Host host;
    host.modules().load(QStringLiteral(MODULE_FILE));
    EXPECT_THROW(host.modules().load(QStringLiteral(MODULE_FILE)), ModuleError);
    EXPECT_FALSE(host.loadModule(QStringLiteral(MODULE_FILE).toStdU16String()));
    EXPECT_EQ(host.loadedModules().size(), 1u);
}

TEST(ModuleLoader, givesTheLibraryAPathThatHoldsAfterAChangeOfTheCurrentFolder)
{
    const QString before = QDir::currentPath();
    const QFileInfo file(QStringLiteral(MODULE_FILE));
    ASSERT_TRUE(QDir::setCurrent(file.path()));
    Host host;
    host.modules().load(file.fileName());
    ASSERT_TRUE(QDir::setCurrent(before));

    QLibrary library(file.filePath());
    const auto createModule = reinterpret_cast<OdRxModuleFactory>(library.resolve("odrxCreateModuleObject"));
    ASSERT_NE(createModule, nullptr);
    void *handle = nullptr;
    const OdString name = createModule(&handle)->moduleName(); // the module that is loaded already
    EXPECT_EQ(QFileInfo(QStringView(name.c_str()).toString()), file) << "one path of the system's own form";
}

TEST(ModuleLoader, definesTheModulesFunctionsInOpenAndLaterDocuments)
{
    Host host;
    Document &before = host.documents().open();
    host.modules().load(QStringLiteral(MODULE_FILE));
    Document &after = host.documents().open();
    for (Document *document : {&before, &after}) {
        host.documents().activate(*document); // programs run in the active document
        EXPECT_TRUE(document->machine().load(u"(acet-str-equal \"a\" \"A\")", u"").isTrue());
    }
    EXPECT_THAT(host.loadedModules(), ElementsAre(u"LispExtension.tx"));
    host.modules().unloadAll();
    EXPECT_THROW(before.machine().load(u"(acet-str-equal \"a\" \"A\")", u""), lisp::LispError);
    // These two stay behind, defined but without their library; nothing may call them any more.
    EXPECT_TRUE(before.machine().intern(u"acet-ini-set")->value.isObject());
    EXPECT_TRUE(before.machine().intern(u"acet-ui-message-html")->value.isObject());
    EXPECT_TRUE(before.machine().intern(u"acet-ini-get")->value.isNil());
}
