import json
import unittest

from lisphost import LispHostTest

PROGRAM = """
(initget 6 "Yes No")
(print (getint "\\nNumber: "))
(initget "Yes No")
(print (getkword "\\nAll? "))
(print (getstring T "\\nName: "))
(print (getpoint "\\nPoint: "))
(print (getdist '(10 20) "\\nDistance: "))
(print (getreal))
"""


class Answers(LispHostTest):
    def run_program(self, answers, *options):
        self.write("program.lsp", PROGRAM)
        self.write("answers.txt", answers)
        return self.lisphost("run", "program.lsp", "--answers", "answers.txt", *options)

    def test_prompts_and_answers_are_shown_and_values_reach_the_program(self):
        outcome = self.run_program("; comment\n7\ny\na b\n10,20\n13,24\n\n")
        self.assert_gives(outcome, '\nNumber: 7\n\n7 \nAll? y\n\n"Yes" \nName: a b\n\n"a b" \nPoint: 10,20\n\n'
                                   '(10.0 20.0 0.0) \nDistance: 13,24\n\n5.0 \n\nnil ')

    def test_a_request_without_an_answer_ends_the_program_and_is_named(self):
        outcome = self.run_program("7\n")
        self.assert_fails(outcome, 1, r'^lisphost: no answer left for the keyword request "All\?"\n'
                                      r"error: Function cancelled\n")

    def test_esc_can_be_caught(self):
        self.write("answers.txt", "@esc\n")
        outcome = self.lisphost("eval", "(vl-catch-all-error-p (vl-catch-all-apply 'getpoint))",
                                "--answers", "answers.txt")
        self.assert_gives(outcome, "T\n")

    def test_programs_read_the_command_line_by_lines_and_characters(self):
        self.write("answers.txt", "one line\n\nab\nc\n")
        outcome = self.lisphost("eval", "(list (read-line) (read-line nil) (read-char) (read-line))",
                                "(list (read-char) (read-char) (read-char))", "--answers", "answers.txt")
        self.assertEqual((outcome.status, outcome.output),
                         (0, 'one line\n\nab\n("one line" "" 97 "b")\nc\n(99 10 nil)\n'))
        self.assertEqual(outcome.errors, 'lisphost: no answer left for the string request ""\n')

    def test_esc_is_the_end_of_the_command_line(self):
        self.write("answers.txt", "a\n@esc\nb\n")
        outcome = self.lisphost("eval", "(while (setq line (read-line)) (setq last-line line))", "(list line last-line)",
                                "--answers", "answers.txt")
        self.assert_gives(outcome, 'a\n"a"\n(nil "a")\n')

    def test_the_transcript_tells_each_request(self):
        self.run_program("7\ny\na b\n10,20\n@esc\n", "--transcript", "transcript.json")
        events = [json.loads(line) for line in (self.folder / "transcript.json").read_text().splitlines()]
        self.assertEqual([(event["event"], event["kind"], event["answer"]) for event in events],
                         [("request", "integer", "7"), ("request", "keyword", "y"), ("request", "string", "a b"),
                          ("request", "point", "10,20"), ("request", "distance", "@esc")])
        self.assertEqual(events[1]["prompt"], "\nAll? ")


if __name__ == "__main__":
    unittest.main()
