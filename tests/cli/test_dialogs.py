import json
import time
import unittest

from lisphost import LispHostTest, native, quoted


class Dialogs(LispHostTest):
    def run_with(self, answers, *expressions):
        """What a run printed, and the events of its transcript."""
        self.write("answers.txt", answers)
        outcome = self.lisphost("eval", *expressions, "--answers", "answers.txt", "--transcript", "transcript")
        events = [json.loads(line) for line in (self.folder / "transcript").read_text().splitlines()]
        return outcome, events

    def test_each_dialog_stands_in_the_transcript_with_its_answer(self):
        outcome, events = self.run_with(
            "@press Yes\n@text new\\nlines\n@press OK\n@file report.txt\n@press Close\n",
            '(acet-ui-message-html "<b>Sure?</b>" "Erase" 36)',
            '(acet-ui-txted "old" "Edit" "&Remark")',
            '(acet-file-writedialog "Save" "." "Texts (*.txt)" "" 0)',
            '(showhtmlmodalwindow "<h1>Done</h1>")')
        self.assert_gives(outcome, '6\n"new\\nlines"\n"./report.txt"\nnil\n')
        self.assertEqual([(event["class"], event["title"], event["text"], event["buttons"], event["answer"])
                          for event in events],
                         [("CFxMessageBox", "Erase", "<b>Sure?</b>", ["Yes", "No"], "@press Yes"),
                          ("Dlg_MTextEditor", "Edit", "old", ["OK", "Cancel"], "@press OK"),
                          ("QFileDialog", "Save", "", ["Save", "Cancel"], "@file report.txt"),
                          ("Dlg_QT_ShowHtmlModalWindow", "Show HTML Modal Window", "<h1>Done</h1>", ["Close"],
                           "@press Close")])
        self.assertEqual(events[0]["icon"], "question")
        self.assertEqual((events[1]["width"], events[1]["height"]), (400, 350))
        self.assertEqual(events[1]["labels"], {"labelSubtitle": "&Remark"})
        self.assertEqual((events[3]["width"], events[3]["height"]), (640, 480))

    def test_a_native_box_stands_in_the_transcript_like_a_message_box_of_qt(self):
        outcome, events = self.run_with("@press Continue\n", '(acet-ui-message "Again?" "Copy" 54)')
        self.assert_gives(outcome, "11\n")
        self.assertEqual(events[0]["class"], "QMessageBox")
        self.assertEqual(events[0]["buttons"], ["Cancel", "Try Again", "Continue"])
        self.assertEqual(events[0]["icon"], "warning")

    def test_alert_shows_its_text_as_it_is(self):
        outcome, events = self.run_with("@press OK\n", '(alert "<b>a</b>\\nb & c")')
        self.assert_gives(outcome, "nil\n")
        self.assertEqual((events[0]["class"], events[0]["text"], events[0]["buttons"]),
                         ("QMessageBox", "<b>a</b>\nb & c", ["OK"]))

    def test_getfiled_asks_for_a_file(self):
        self.write("plan.dxf", "")
        outcome, events = self.run_with("@file plan.dxf\n@esc\n@file new\n@file plan.dxf\n@press Yes\n",
                                        '(getfiled "Open" "" "dxf" 0)', '(getfiled "Open" "" "dxf" 0)',
                                        '(getfiled "New" "" "dxf" 1)', '(getfiled "New" "plan" "dxf" 1)')
        there, new = quoted(native(self.folder / "plan.dxf")), quoted(native(self.folder / "new.dxf"))
        self.assert_gives(outcome, f"{there}\nnil\n{new}\n{there}\n")
        self.assertEqual([event["text"] for event in events[:4]], ["", "", "", "plan"])

    def test_alert_and_getfiled_refuse_other_arguments(self):
        for expression in ("(alert 5)", '(getfiled "T" "" "dxf")', '(getfiled "T" "" "dxf" 1.5)', "(alert)"):
            self.assert_fails(self.evaluate(expression), 1, "error: ")

    def test_the_status_window_is_noted_when_it_changes(self):
        _, events = self.run_with("", '(acet-ui-status "Working" "Step 1")', "(+ 1 2)", "(acet-ui-status)",
                                  '(acet-ui-status "Still working")', '(acet-ui-status "Still working")')
        self.assertEqual(events, [
            {"event": "window", "class": "Dlg_Status", "title": "Step 1", "text": "Working", "visible": True},
            {"event": "window", "class": "Dlg_Status", "title": "", "text": "Still working", "visible": True}])

    def test_a_label_of_the_progress_meter_may_begin_with_a_byte_order_mark(self):
        _, events = self.run_with("", '(acet-ui-progress "\ufeffCopying" 100)', "(acet-ui-progress)")
        self.assertEqual([event["label"] for event in events], ["\ufeffCopying"] * 2)

    def test_registered_help_is_noted(self):
        _, events = self.run_with("", '(acet-help-trap "DOOR" "doors")', '(acet-help-trap "WALL" "walls" "own.chm")',
                                  '(acet-help-trap "ROOF")', "(acet-help-trap 5)")
        self.assertEqual(events, [{"event": "help", "name": "DOOR", "file": "WexoTools.chm", "topic": "doors"},
                                  {"event": "help", "name": "WALL", "file": "own.chm", "topic": "walls"},
                                  {"event": "help", "name": "ROOF", "file": "", "topic": ""}])

    def test_each_step_of_the_progress_meter_is_noted(self):
        _, events = self.run_with("", '(acet-ui-progress "Copying" 100)', "(acet-ui-progress 50)", "(acet-ui-progress)")
        self.assertEqual([(event["event"], event["call"], event["label"], event["position"]) for event in events],
                         [("progress", "start", "Copying", 0), ("progress", "set", "Copying", 50),
                          ("progress", "end", "Copying", 50)])

    def test_a_program_that_shows_more_dialogs_than_there_are_answers_ends_in_bounded_time(self):
        begin = time.monotonic()
        outcome, events = self.run_with(
            "@press No\n", '(progn (repeat 100 (acet-ui-message "Erase?" "T" 4)) (acet-ui-txted "a" "b" "c"))',
            '(acet-ui-message "Done" "T" 0)', '(acet-ui-message "Go on?" "T" 1)', "(acet-ui-pickdir)")
        self.assertLess(time.monotonic() - begin, 60)
        self.assertEqual(outcome.output, "nil\n1\n2\nnil\n")
        self.assertEqual(outcome.errors.count("lisphost: no answer left for the dialog "), 103)
        self.assertEqual([event["answer"] for event in events], ["@press No"] + [None] * 103)

    def test_an_answer_that_does_not_suit_is_named(self):
        outcome, _ = self.run_with("; first line\n10,20\n", '(acet-ui-message "Go on?" "T" 1)')
        self.assertEqual(outcome.errors,
                         'lisphost: the answer of line 2, 10,20, does not suit the dialog QMessageBox "T"\n')

    def test_prompts_and_dialogs_take_their_answers_in_turn(self):
        outcome, events = self.run_with("7\n@press Yes\nabc\n", '(getint "Number: ")', '(acet-ui-message "?" "T" 4)',
                                        '(getstring "Text: ")')
        self.assertEqual(outcome.output.splitlines()[-1], '"abc"')
        self.assertEqual([event["event"] for event in events], ["request", "dialog", "request"])

    def test_an_error_in_a_program_leaves_no_dialog_behind(self):
        outcome, _ = self.run_with("", '(acet-ui-status "a")', "(car 5)")
        self.assert_fails(outcome, 1, "error: bad argument type")

    def test_no_screen_of_the_user_is_touched(self):
        self.environment |= {"DISPLAY": ":987", "WAYLAND_DISPLAY": "nowhere", "QT_QPA_PLATFORM": "xcb",
                             "QT_STYLE_OVERRIDE": "windows", "QT_QPA_PLATFORMTHEME": "gtk3"}
        outcome, _ = self.run_with("@press OK\n", '(acet-ui-message "x" "T" 0)')
        self.assert_gives(outcome, "1\n")


if __name__ == "__main__":
    unittest.main()
