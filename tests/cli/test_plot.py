import struct
import unittest

from lisphost import LispHostTest

# A diagonal red line in a drawing of the oldest kind, which has neither tables nor layouts.
LINE = "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n62\n1\n10\n0.0\n20\n0.0\n11\n200.0\n21\n100.0\n0\nENDSEC\n0\nEOF\n"


class Plot(LispHostTest):
    def plot(self, name, *arguments):
        outcome = self.lisphost("--drawing", self.write("line.dxf", LINE), "--plot", name, *arguments, "eval", "(+ 1 2)")
        self.assertEqual((outcome.status, outcome.output, outcome.errors), (0, "3\n", ""))
        return (self.folder / name).read_bytes()

    def test_png_is_1600_pixels_wide(self):
        content = self.plot("plot.png")
        self.assertEqual(content[:8], b"\x89PNG\r\n\x1a\n")
        self.assertEqual(struct.unpack(">I", content[16:20]), (1600,))

    def test_svg_has_the_line(self):
        content = self.plot("plot.svg").decode()
        self.assertIn('width="420mm"', content)
        self.assertIn('stroke="#ff0000"', content)

    def test_pdf_is_one(self):
        self.assertEqual(self.plot("PLOT.PDF")[:5], b"%PDF-")

    def test_what_the_program_draws_is_on_the_plot(self):
        make = '(entmake (quote ((0 . "LINE") (8 . "0") (62 . 3) (10 0 0 0) (11 5 5 0))))'
        outcome = self.lisphost("--plot", "made.svg", "eval", make)
        self.assertEqual((outcome.status, outcome.errors), (0, ""))
        self.assertIn('stroke="#00ff00"', (self.folder / "made.svg").read_text())

    def test_the_picture_of_a_dimension_that_the_program_makes_is_on_the_plot(self):
        make = ('(entmake (quote ((0 . "DIMENSION") (8 . "0") (62 . 3) (10 0.0 20.0 0.0) (13 0.0 0.0 0.0)'
                ' (14 60.0 0.0 0.0) (70 . 0))))')
        outcome = self.lisphost("--plot", "dimension.svg", "eval", make)
        self.assertEqual((outcome.status, outcome.errors), (0, ""))
        self.assertIn('stroke="#00ff00"', (self.folder / "dimension.svg").read_text())

    def test_layout_goes_by_its_name(self):
        outcome = self.lisphost("--plot", "layout.svg", "--layout", "LAYOUT1", "eval", "1")
        self.assertEqual((outcome.status, outcome.errors), (0, ""))
        self.assertTrue((self.folder / "layout.svg").exists())
        self.assert_fails(self.lisphost("--plot", "a.svg", "--layout", "Missing", "eval", "1"), 3, "Missing")

    def test_unknown_ending_is_a_usage_error_before_the_program_runs(self):
        outcome = self.lisphost("--plot", "plot.jpg", "eval", '(princ "ran")')
        self.assertNotIn("ran", outcome.output)
        self.assert_fails(outcome, 2, "png")

    def test_file_that_cannot_be_written_is_told(self):
        self.assert_fails(self.lisphost("--plot", "missing/plot.png", "eval", "1"), 3, "missing/plot.png")

    def plot_command(self, *answers):
        program = "(command %s)" % " ".join(answers)
        return self.lisphost("--drawing", self.write("line.dxf", LINE), "eval", program)

    def test_a_program_plots_a_window_in_its_scale(self):
        outcome = self.plot_command('"_.-plot" "_y" "Model" "SVG" "A4" "_m" "_l" "_n" "_w" \'(0 0) \'(100 100) "1:2"',
                                    '"5,7" "_y" "" "_y" "" "window.svg" "_n" "_y"')
        self.assertEqual((outcome.status, outcome.errors), (0, ""))
        picture = (self.folder / "window.svg").read_text()
        self.assertIn('width="297mm" height="210mm"', picture)
        # From 5,7 on, half as large, and cut where the window ends.
        self.assertIn("M5 203L55 203L55 153L5 153", picture)
        self.assertIn("M5 203L105 153", picture)

    def test_a_program_plots_a_layout(self):
        outcome = self.lisphost("eval", '(command "_.-plot" "_n" "Layout1" "" "PDF" "layout" "_n" "_y")')
        self.assertEqual((outcome.status, outcome.errors), (0, ""))
        self.assertEqual((self.folder / "layout.pdf").read_bytes()[:5], b"%PDF-")

    def test_a_plot_that_cannot_be_written_is_told_to_the_program(self):
        outcome = self.plot_command('"_.-plot" "_n" "" "" "PNG" "missing/plot" "_n" "_y"')
        self.assertIn("missing/plot.png", outcome.output)

    def test_blocks_that_show_too_much_are_cut_with_a_line_about_it(self):
        def block(number, entities):
            return "0\nBLOCK\n8\n0\n2\nB%d\n70\n0\n10\n0\n20\n0\n%s0\nENDBLK\n8\n0\n" % (number, entities)

        def insert(number, x):
            return "0\nINSERT\n8\n0\n2\nB%d\n10\n%d\n20\n0\n" % (number, x)

        blocks = block(0, "0\nLINE\n8\n0\n10\n0\n20\n0\n11\n1\n21\n1\n")
        for number in range(40):
            blocks += block(number + 1, "".join(insert(number, x) for x in range(10)))
        drawing = "0\nSECTION\n2\nBLOCKS\n%s0\nENDSEC\n0\nSECTION\n2\nENTITIES\n%s0\nENDSEC\n0\nEOF\n"
        bomb = self.write("bomb.dxf", drawing % (blocks, insert(40, 0)))
        outcome = self.lisphost("--drawing", bomb, "--plot", "bomb.png", "eval", "1")
        self.assertEqual((outcome.status, outcome.output), (0, "1\n"))
        self.assertRegex(outcome.errors, r"\Alisphost: [^\n]*1 object[^\n]*\n\Z")
        self.assertTrue((self.folder / "bomb.png").exists())

    def test_nothing_is_drawn_when_the_program_failed(self):
        outcome = self.lisphost("--plot", "plot.png", "eval", "(car 1)")
        self.assertEqual(outcome.status, 1)
        self.assertFalse((self.folder / "plot.png").exists())


unittest.main()
