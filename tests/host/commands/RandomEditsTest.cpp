#include "host/drawing/DrawingWriter.h"
#include "tests/host/commands/CommandTest.h"

#include <random>

namespace {

// Programs of random edits, some of which make no sense, and of some that end in an error.
class RandomEdits : public CommandTest
{
protected:
    RandomEdits()
    {
        evaluate(R"((progn
            (command "_.line" '(0 0) '(10 5) '(20 0) "" "_.circle" '(5 5) 3 "_.pline" '(0 0) '(5 0) "_a" '(5 5) "")
            (command "_.text" '(1 1) 2.5 0 "Door" "_.point" '(7 7) "_.ellipse" '(0 0) '(8 0) 3)
            (command "_.circle" '(30 30) 2 "_.-block" "Post" '(30 30) (entlast) "")
            (command "_.-insert" "Post" '(15 15) 1 1 0)
            (defun any (n / all) (setq all (ssget "_X")) (if all (ssname all (rem n (sslength all)))))
            (defun change (e old new / data)
              (setq data (entget e))
              (if (assoc old data) (entmod (subst new (assoc old data) data)) (entmod (cons new data))))))
        )");
        database().journal().clear();
    }

    std::string number() { return std::to_string(std::uniform_int_distribution(-20, 20)(m_random)); }
    std::string place() { return "'(" + number() + " " + number() + " 0.0)"; }
    std::string object() { return "(any " + std::to_string(std::uniform_int_distribution(0, 50)(m_random)) + ")"; }

    std::string edit()
    {
        const std::string edits[] = {
            "(entdel " + object() + ")",
            "(change " + object() + " 62 (cons 62 " + number() + "))",
            "(change " + object() + " 10 (list 10 " + number() + " 2.5 0.0))",
            "(change " + object() + " 8 (cons 8 \"Layer" + number() + "\"))",
            "(entmake (list (cons 0 \"CIRCLE\") (cons 10 " + place() + ") (cons 40 2.0)))",
            "(entmod (list (cons -1 " + object() + ") (list -3 (list \"ACAD\" (cons 1000 \"note\")))))",
            "(dictadd (namedobjdict) \"MINE\" (entmakex '((0 . \"XRECORD\") (100 . \"AcDbXrecord\") (1 . \"x\"))))",
            "(command \"_.move\" " + object() + " \"\" " + place() + " " + place() + ")",
            "(command \"_.copy\" " + object() + " \"\" " + place() + " " + place() + ")",
            "(command \"_.rotate\" " + object() + " \"\" " + place() + " " + number() + ")",
            "(command \"_.scale\" " + object() + " \"\" " + place() + " 1.5)",
            "(command \"_.mirror\" " + object() + " \"\" " + place() + " " + place() + " \"_y\")",
            "(command \"_.offset\" 1 (list " + object() + " " + place() + ") " + place() + " \"\")",
            "(command \"_.array\" " + object() + " \"\" \"_r\" 2 2 5 5)",
            "(command \"_.explode\" " + object() + ")",
            "(command \"_.erase\" " + object() + " " + object() + " \"\")",
            "(command \"_.break\" (list " + object() + " " + place() + ") " + place() + ")",
            "(command \"_.-layer\" \"_m\" \"L" + number() + "\" \"_c\" 3 \"\" \"\")",
            "(command \"_.-insert\" \"Post\" " + place() + " 2 1 30)",
            "(command \"_.chprop\" " + object() + " \"\" \"_c\" 4 \"\")",
            "(command \"_.undo\" \"_g\")",
            "(command \"_.undo\" \"_e\")",
            "(progn (command \"_.undo\" \"_g\") (entdel " + object() + ") (car 1))",
        };
        return edits[std::uniform_int_distribution<std::size_t>(0, std::size(edits) - 1)(m_random)];
    }

    void run(int edits)
    {
        for (int count = 0; count < edits; ++count) {
            evaluate(edit());
            evaluate("(while (/= 0 (getvar \"CMDACTIVE\")) (command))");
        }
    }

    std::mt19937 m_random{20260117}; // the same programs in every run
};

TEST_F(RandomEdits, UndoneToTheStartGiveTheBytesOfTheFileAndRedoneThoseOfTheEnd)
{
    constexpr int Programs = 60, EditsInOne = 15;
    int changed = 0;
    for (int program = 0; program < Programs; ++program) {
        const std::string before = drawing::writtenDrawing(database());
        run(EditsInOne);
        const std::string after = drawing::writtenDrawing(database());
        changed += after != before ? 1 : 0;
        std::size_t steps = 0;
        for (; database().journal().undoableSteps() > 0; ++steps)
            ASSERT_EQ(evaluate("(progn (command \"_.u\") (getvar \"CMDACTIVE\"))"), "0");
        ASSERT_EQ(drawing::writtenDrawing(database()), before) << program;
        ASSERT_EQ(database().journal().redo(steps), steps);
        ASSERT_EQ(drawing::writtenDrawing(database()), after) << program;
        database().journal().clear();
    }
    EXPECT_GT(changed, Programs * 9 / 10);
}

} // namespace
