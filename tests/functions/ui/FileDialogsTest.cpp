#include "functions/filedialogs.h"
#include "tests/functions/ui/UiTest.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>

namespace {

// As a person who types a name and presses the dialog's button.
DialogWatcher::Action choose(const QString &path)
{
    return [path](QDialog &dialog) {
        child<QLineEdit>(dialog, "fileNameEdit").setText(path);
        QMetaObject::invokeMethod(&dialog, "accept");
    };
}

class FileDialogs : public UiTest
{
protected:
    void expectDialog(DialogWatcher::Action look, DialogWatcher::Action action)
    {
        person().expect([=](QDialog &dialog) {
            look(dialog);
            action(dialog);
        });
    }

    static QFileDialog &fileDialog(QDialog &dialog) { return dynamic_cast<QFileDialog &>(dialog); }

    QString path(const QString &name) const { return QDir(m_folder.path()).canonicalPath() + u'/' + name; }

    Arguments arguments() const
    {
        return {text(u"Title"), text(m_folder.path()), text(u"Drawings (*.dxf)"), text(u""), shortInteger(1)};
    }

    QTemporaryDir m_folder;
};

// Each of the five arguments missing or wrong in turn: what is printed, and no dialog.
void expectRefusals(const std::function<Operations(const Arguments &)> &call)
{
    const Arguments all = {text(u"a"), text(u"b"), text(u"c"), text(u"d"), shortInteger(0)};
    for (std::size_t count = 0; count < all.size(); ++count) {
        Arguments some(all.begin(), all.begin() + std::ptrdiff_t(count));
        EXPECT_EQ(call(some), (Operations{"getArgs", tooFewArguments, "retNil", "releaseRb null"})) << count;
        some.push_back(nil());
        EXPECT_EQ(call(some), (Operations{"getArgs", wrongType, "retNil", "releaseRb " + std::to_string(count + 1),
                                          "releaseRb null"}))
            << count;
    }
}

} // namespace

TEST_F(FileDialogs, ReadHandsTheArgumentsToTheHostAndReturnsTheChosenPath)
{
    host().setChosenFile(u"/drawings/plan.dxf"_qs);
    EXPECT_EQ(call(acetFileReaddialog, {text(u"Open"), text(u"plan"), text(u"dxf"), text(u"unused"), shortInteger(-3)}),
              (Operations{"getArgs", operation("getFileDialog", "Open") + " \"plan\" \"dxf\" -3",
                          operation("retWStr", "/drawings/plan.dxf"), "releaseRb 5"}));
}

TEST_F(FileDialogs, ReadGivesNilForAnyOtherStatus)
{
    for (const int status : {StatusCancelled, StatusError, StatusNoInput}) {
        host().setAnswer("getFileDialog", status);
        EXPECT_EQ(call(acetFileReaddialog, {text(u"a"), text(u"b"), text(u"c"), text(u"d"), shortInteger(8)}),
                  (Operations{"getArgs", operation("getFileDialog", "a") + " \"b\" \"c\" 8", "retNil", "releaseRb 5"}));
    }
}

TEST_F(FileDialogs, ReadStopsAtTheFirstRefusedArgument)
{
    expectRefusals([this](const Arguments &some) { return call(acetFileReaddialog, some); });
}

TEST_F(FileDialogs, WriteWithOnlyFourArgumentsPrintsTooFewArgumentsAndShowsNoDialog)
{
    EXPECT_EQ(call(acetFileWritedialog, {text(u"a"), text(u"b"), text(u"c"), text(u"d")}),
              (Operations{"getArgs", tooFewArguments, "retNil", "releaseRb null"}));
    expectRefusals([this](const Arguments &some) { return call(acetFileWritedialog, some); });
    EXPECT_EQ(person().shown(), 0);
}

TEST_F(FileDialogs, WriteShowsADialogToSave)
{
    expectDialog(
        [this](QDialog &dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"Title"_qs);
            EXPECT_EQ(dialog.parentWidget(), &mainWindow());
            EXPECT_EQ(fileDialog(dialog).nameFilters(), QStringList{u"Drawings (*.dxf)"_qs});
            EXPECT_EQ(fileDialog(dialog).directory().canonicalPath(), QDir(m_folder.path()).canonicalPath());
            EXPECT_EQ(fileDialog(dialog).acceptMode(), QFileDialog::AcceptSave);
            EXPECT_FALSE(dialog.testAttribute(Qt::WA_QuitOnClose));
        },
        press(u"Cancel"_qs));
    EXPECT_EQ(call(acetFileWritedialog, arguments()), (Operations{"getArgs", "retNil", "releaseRb 5"}));
}

TEST_F(FileDialogs, WriteGivesAPathWithForwardSlashes)
{
    person().expect(choose(u"new.dxf"_qs));
    EXPECT_EQ(call(acetFileWritedialog, arguments()),
              (Operations{"getArgs", operation("retWStr", m_folder.path() + u"/new.dxf"_qs), "releaseRb 5"}));
}

TEST_F(FileDialogs, PickdirWithNoArgumentsOpensAtTheRootOfTheFileSystemWithAnEmptyCaption)
{
    expectDialog(
        [this](QDialog &dialog) {
            EXPECT_EQ(dialog.parentWidget(), &documentWindow());
            EXPECT_EQ(dialog.windowTitle(), QFileDialog::tr("Find Directory")); // Qt's own, where there is no caption
            EXPECT_EQ(fileDialog(dialog).directory().path(), QDir::rootPath());
            EXPECT_EQ(fileDialog(dialog).fileMode(), QFileDialog::Directory);
            EXPECT_TRUE(fileDialog(dialog).testOption(QFileDialog::ShowDirsOnly));
        },
        press(u"Cancel"_qs));
    EXPECT_EQ(call(acetUiPickdir, {}), (Operations{"getArgs", "retNil"}));
}

TEST_F(FileDialogs, PickdirWithAStartFolderThatDoesNotExistOpensAtTheRoot)
{
    expectDialog([](QDialog &dialog) { EXPECT_EQ(fileDialog(dialog).directory().path(), QDir::rootPath()); },
                 press(u"Cancel"_qs));
    EXPECT_EQ(call(acetUiPickdir, {text(u""), text(path(u"missing"_qs))}), (Operations{"getArgs", "retNil"}));
}

TEST_F(FileDialogs, PickdirWithAnIntegerAsItsFirstArgumentPrintsAMessageAndStillShowsTheDialog)
{
    person().expect(choose(m_folder.path()));
    EXPECT_EQ(call(acetUiPickdir, {shortInteger(1), text(m_folder.path()), text(u"Caption")}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 1", operation("retWStr", m_folder.path())}));
}

TEST_F(FileDialogs, PickdirWithAnIntegerAsALaterArgumentPrintsAMessageAndShowsTheDialogWithWhatWasReadBefore)
{
    expectDialog([](QDialog &dialog) { EXPECT_EQ(fileDialog(dialog).directory().path(), QDir::rootPath()); },
                 press(u"Cancel"_qs));
    EXPECT_EQ(call(acetUiPickdir, {text(u""), shortInteger(1), text(u"Caption")}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 2", "retNil"}));
    expectDialog(
        [this](QDialog &dialog) {
            EXPECT_EQ(dialog.windowTitle(), QFileDialog::tr("Find Directory"));
            EXPECT_EQ(fileDialog(dialog).directory().path(), m_folder.path());
        },
        press(u"Cancel"_qs));
    EXPECT_EQ(call(acetUiPickdir, {text(u""), text(m_folder.path()), shortInteger(1)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 3", "retNil"}));
}

TEST_F(FileDialogs, PickdirStartsInItsFolderWithItsCaptionAndReleasesTheThirdNode)
{
    expectDialog(
        [this](QDialog &dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"Caption"_qs);
            EXPECT_EQ(fileDialog(dialog).directory().path(), m_folder.path());
        },
        choose(m_folder.path()));
    EXPECT_EQ(call(acetUiPickdir, {text(u"unused"), text(m_folder.path()), text(u"Caption")}),
              (Operations{"getArgs", operation("retWStr", m_folder.path()), "releaseRb 3"}));
}

TEST_F(FileDialogs, PickdirReleasesNothingWhenATextIsMissing)
{
    person().expect(choose(m_folder.path()));
    EXPECT_EQ(call(acetUiPickdir, {text(u"unused"), text(m_folder.path())}),
              (Operations{"getArgs", operation("retWStr", m_folder.path())}));
}
