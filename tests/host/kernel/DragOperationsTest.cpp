#include "host/kernel/Document.h"
#include "host/kernel/HostServices.h"
#include "host/kernel/drawing/SelectionSet.h"
#include "lisp/LispStatus.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<std::pair<double, double>> cursors; // the callback has no place for data of its own

int noteCursor(const LispPoint *cursor, LispMatrix *transform)
{
    transform->rows[0][0] = 0; // any matrix will do, one without an inverse too
    cursors.emplace_back(cursor->x, cursor->y);
    return StatusNormal;
}

using Places = std::vector<std::pair<double, double>>;

class DragOperations : public testing::Test
{
protected:
    DragOperations()
    {
        cursors.clear();
        m_services.print = [this](std::u16string_view text) { m_printed += text; };
    }
    int drag(QStringView answers, const LispName &selection)
    {
        m_services.answers = AnswersFile::fromText(answers, QString());
        return m_document.lispHost()->dragSelection(&selection, u"\nTurn: ", 0, noteCursor, &m_picked);
    }
    int drag(QStringView answers)
    {
        const lisp::Value set = m_document.machine().heap().newNative<SelectionSet>(m_document.selectionSets());
        return drag(answers, static_cast<SelectionSet *>(set.asObject())->nodeName());
    }
    std::u16string input()
    {
        char16_t text[512] = {};
        EXPECT_EQ(m_document.lispHost()->getInput(text, 512), StatusNormal);
        return text;
    }

    HostServices m_services;
    Document m_document{m_services};
    std::u16string m_printed;
    LispPoint m_picked{7, 7, 7};
};

} // namespace

TEST_F(DragOperations, TheCallbackSeesEachPlaceOfTheCursorAndTheOneThatIsPicked)
{
    EXPECT_EQ(drag(u"@move 1,0\n@move 1,1\n0,2\n"), StatusNormal);
    EXPECT_EQ(cursors, (Places{{1, 0}, {1, 1}, {0, 2}}));
    EXPECT_EQ(m_picked.x, 0);
    EXPECT_EQ(m_picked.y, 2);
    EXPECT_EQ(m_printed, u"\nTurn: \nTurn: \nTurn: 0,2\n");
}

TEST_F(DragOperations, TypedTextEndsItAsItStands)
{
    EXPECT_EQ(drag(u"@move 1,0\nreference here\n"), StatusText);
    EXPECT_EQ(input(), u"reference here");
    EXPECT_EQ(cursors, (Places{{1, 0}}));
    EXPECT_EQ(m_picked.x, 7); // only a pick sets the point
}

TEST_F(DragOperations, AKeywordThatWasAnnouncedComesInFull)
{
    m_document.lispHost()->initGet(0, u"Reference Copy");
    EXPECT_EQ(drag(u"r\n"), StatusText);
    EXPECT_EQ(input(), u"Reference");
    EXPECT_EQ(drag(u"r\n"), StatusText); // for one drag
    EXPECT_EQ(input(), u"r");
}

TEST_F(DragOperations, EscEnterAndAMissingAnswerPickNothing)
{
    EXPECT_EQ(drag(u"@move 3,4\n@esc\n"), StatusCancelled);
    EXPECT_EQ(drag(u"\n"), StatusNoInput);
    EXPECT_EQ(drag(u""), StatusCancelled);
    EXPECT_EQ(cursors, (Places{{3, 4}}));
    EXPECT_EQ(m_picked.x, 7);
}

TEST_F(DragOperations, AMoveThatIsNoPointIsComplainedAbout)
{
    EXPECT_EQ(drag(u"@move there\n5,5\n"), StatusNormal);
    EXPECT_EQ(cursors, (Places{{5, 5}}));
    EXPECT_EQ(m_printed, u"\nTurn: Invalid point.\n\nTurn: 5,5\n");
}

TEST_F(DragOperations, WithoutTheSelectionNothingIsAsked)
{
    EXPECT_EQ(drag(u"1,1\n", LispName{{12345, 0}}), StatusError);
    EXPECT_TRUE(cursors.empty());
    EXPECT_EQ(m_printed, u"");
}
