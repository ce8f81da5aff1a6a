#include "dialogs/Dlg_Status.h"
#include "tests/dialogs/FormChecks.h"

#include <gtest/gtest.h>

TEST(Status, HasTheValuesOfItsForm)
{
    const Dlg_Status dialog(nullptr);
    EXPECT_EQ(dialog.objectName(), u"Dlg_Status"_qs);
    EXPECT_EQ(dialog.size(), QSize(306, 125));
    EXPECT_EQ(dialog.windowTitle(), u"Dlg_Status"_qs);
    EXPECT_EQ(dialog.layout(), nullptr);
    EXPECT_FALSE(dialog.isModal());
    expectDialogFlags(dialog);
    expectDoesNotQuit(dialog);
}

TEST(Status, HasOneLabelPlacedAbsolutely)
{
    const Dlg_Status dialog(nullptr);
    EXPECT_EQ(dialog.children(), QObjectList{dialog.Message});
    EXPECT_EQ(dialog.Message->objectName(), u"Message"_qs);
    EXPECT_EQ(dialog.Message->geometry(), QRect(16, 12, 277, 97));
    EXPECT_EQ(dialog.Message->alignment(), Qt::AlignLeft | Qt::AlignTop);
    EXPECT_EQ(dialog.Message->text(), u"TextLabel"_qs);
}

TEST(Status, IsAClassOfItsOwnWithParentAndLayoutPart)
{
    QWidget parent;
    auto *dialog = new Dlg_Status(&parent);
    EXPECT_STREQ(dialog->metaObject()->className(), "Dlg_Status");
    EXPECT_STREQ(dialog->metaObject()->superClass()->className(), "CFxDialog");
    EXPECT_EQ(dialog->parentWidget(), &parent);
    EXPECT_TRUE(dialog->isWindow());
    EXPECT_EQ(dialog->qt_metacast("Ui::Dlg_Status"), static_cast<Ui::Dlg_Status *>(dialog));
}
