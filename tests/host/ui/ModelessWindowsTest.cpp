#include "tests/host/ui/DriverTest.h"

#include <QLabel>

namespace {

using ModelessWindows = DriverTest;

QString summary(const QJsonObject &event)
{
    return QStringList({event[u"event"].toString(), event[u"title"].toString(), event[u"text"].toString(),
                        event[u"visible"].toBool() ? u"visible"_qs : u"hidden"_qs})
        .join(u' ');
}

} // namespace

TEST_F(ModelessWindows, AreWrittenDownWheneverTheyHaveChanged)
{
    QDialog window;
    QLabel label(u"one"_qs, &window);
    window.setWindowTitle(u"Title"_qs);
    driver().noteWindows();
    EXPECT_TRUE(events().isEmpty()) << "not shown yet";
    window.show();
    driver().noteWindows();
    driver().noteWindows();
    label.setText(u"two"_qs);
    driver().noteWindows();
    window.close();
    driver().noteWindows();
    window.show();
    driver().noteWindows();
    QStringList summaries;
    for (const QJsonObject &event : events())
        summaries += summary(event);
    EXPECT_EQ(summaries, (QStringList{u"window Title one visible"_qs, u"window Title two visible"_qs,
                                      u"window Title two hidden"_qs, u"window Title two visible"_qs}));
}

TEST_F(ModelessWindows, NeedNoAnswer)
{
    setAnswers(u"@press OK"_qs);
    QDialog window;
    window.show();
    EditorDialog dialog;
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(ModelessWindows, AreForgottenWhenTheyAreDestroyed)
{
    {
        QDialog window;
        window.show();
        driver().noteWindows();
    }
    driver().noteWindows();
    EXPECT_EQ(events().size(), 1);
}
