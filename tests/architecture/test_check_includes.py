#!/usr/bin/env python3
"""Shows that the check of includes finds what it must find."""

import pathlib
import tempfile
import unittest

import check_includes


class CheckIncludes(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.repository = pathlib.Path(directory.name)
        for header in ("host/drawing/Line.h", "host/interpreter/Value.h", "lisp/resbuf.h", "sdk/fx/ui/CFxDialog.h",
                       "qt/QtWidgets/QLabel"):
            self.write(header, "")

    def write(self, name, content):
        path = self.repository / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(content, encoding="utf-8")
        return path

    def faults(self, name, content):
        source = self.write(name, content)
        return list(check_includes.faults(self.repository, self.repository / "qt", source))

    def test_own_folder_and_system_headers_are_allowed(self):
        self.assertEqual(self.faults("host/interpreter/Heap.cpp", '#include "host/interpreter/Value.h"\n#include <map>\n'), [])

    def test_listed_folder_is_allowed(self):
        self.assertEqual(self.faults("functions/files.cpp", '#include "lisp/resbuf.h"\n'), [])

    def test_folder_that_is_not_listed_is_refused(self):
        self.assertEqual(len(self.faults("host/interpreter/Heap.cpp", '#include "host/drawing/Line.h"\n')), 1)
        self.assertEqual(len(self.faults("functions/files.cpp", '#include "host/interpreter/Value.h"\n')), 1)
        self.assertEqual(len(self.faults("lisp/Values.cpp", '  #  include "host/drawing/Line.h"\n')), 1)

    def test_differences_of_systems_are_kept_in_their_places(self):
        for condition in ("#ifdef _WIN32", "#ifndef Q_OS_WIN", "#  if defined(__linux__)", "#if A\n#elif defined _WIN64"):
            self.assertEqual(len(self.faults("functions/files.cpp", condition + "\n#endif\n")), 1, condition)
            self.assertEqual(self.faults("platform/Shell.h", condition + "\n#endif\n"), [])
        self.assertEqual(self.faults("functions/files.cpp", "#ifdef NDEBUG\n#endif\n// _WIN32\n"), [])

    def test_conversion_that_drops_a_first_character_is_refused(self):
        self.assertEqual(len(self.faults("platform/Shell.cpp", "return QString::fromUtf16(text);\n")), 1)
        self.assertEqual(self.faults("platform/Shell.cpp", "return QStringView(text).toString();\n"), [])

    def test_relative_path_is_refused(self):
        self.assertEqual(len(self.faults("lisp/Values.cpp", '#include "resbuf.h"\n')), 1)

    def test_widgets_are_kept_out_of_the_interpreter_alone(self):
        self.assertEqual(len(self.faults("host/interpreter/Heap.cpp", "#include <QLabel>\n")), 1)
        self.assertEqual(self.faults("dialogs/Editor.cpp", "#include <QLabel>\n"), [])

    def test_folder_of_windows_inside_an_allowed_one_is_kept_out_of_folders_without_windows(self):
        include = '#include "sdk/fx/ui/CFxDialog.h"\n'
        self.assertEqual(len(self.faults("lisp/Values.cpp", include)), 1)
        self.assertEqual(self.faults("dialogs/Editor.h", include), [])


if __name__ == "__main__":
    unittest.main()
