#include "tests/dialogs/FormChecks.h"

#include <QIcon>

#include <gtest/gtest.h>

void expectDialogFlags(const QDialog &dialog)
{
    EXPECT_EQ((dialog.windowFlags() & ~Qt::WindowType_Mask).toInt(), 0x08003000);
    EXPECT_EQ(dialog.windowType(), Qt::Dialog);
}

void expectDoesNotQuit(const QDialog &dialog)
{
    EXPECT_FALSE(dialog.testAttribute(Qt::WA_QuitOnClose));
}

void expectPolicy(const QWidget &widget, QSizePolicy::Policy horizontal, QSizePolicy::Policy vertical)
{
    const QSizePolicy policy = widget.sizePolicy();
    EXPECT_EQ(policy.horizontalPolicy(), horizontal);
    EXPECT_EQ(policy.verticalPolicy(), vertical);
    EXPECT_EQ(policy.horizontalStretch(), 0);
    EXPECT_EQ(policy.verticalStretch(), 0);
    EXPECT_FALSE(policy.hasHeightForWidth());
}

void expectSpacer(const QLayoutItem *item)
{
    const QSpacerItem *spacer = const_cast<QLayoutItem *>(item)->spacerItem();
    ASSERT_NE(spacer, nullptr);
    EXPECT_EQ(spacer->sizeHint(), QSize(40, 20));
    EXPECT_EQ(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    EXPECT_EQ(spacer->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
}

void expectIcon(const QIcon &icon, const QString &resource)
{
    const QImage image = QImage(resource).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(icon.pixmap(image.size(), QIcon::Normal, QIcon::Off).toImage().convertToFormat(image.format()), image);
}
