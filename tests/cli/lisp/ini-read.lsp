(write-file "settings.ini"
  (strcat "loose=outside\n"
          "[Paths]\n"
          "Fonts=fonts\n"
          "Plots=C:\\\\plots\n"
          "Empty=\n"
          "[Empty section]\n"
          "; a comment\n"
          "[Main]\n"
          "Size=10\n"
          "Text=\"two, words; and more\"\n"
          "List=a, b\n"
          "Accent=Gr\\xf6\\xdf\\x65\n"))

(title "the file alone: its sections")
(show-all '((acet-ini-get "settings.ini")
            (acet-ini-get "settings.ini" "")
            (acet-ini-get "settings.ini" nil)
            (acet-ini-get "settings.ini" "" "Size" "default")
            (acet-ini-get "settings.ini" nil "Size" "default")))

(title "a section: its keys")
(show-all '((acet-ini-get "settings.ini" "Paths")
            (acet-ini-get "settings.ini" "Main" "")
            (acet-ini-get "settings.ini" "Main" nil "default")
            (acet-ini-get "settings.ini" "Main" 5 "default")))

(title "a key: its value")
(show-all '((acet-ini-get "settings.ini" "Paths" "Fonts")
            (acet-ini-get "settings.ini" "Paths" "Plots")
            (acet-ini-get "settings.ini" "Main" "Size")
            (acet-ini-get "settings.ini" "Main" "Text")
            (acet-ini-get "settings.ini" "Main" "Accent")
            (acet-ini-get "settings.ini" "Main" "Size" "20")))

(title "a key without a value is an empty text, not the default")
(show-all '((acet-ini-get "settings.ini" "Paths" "Empty" "default")))

(title "a missing key of a section: the default, or nil")
(show-all '((acet-ini-get "settings.ini" "Paths" "Missing" "default")
            (acet-ini-get "settings.ini" "Paths" "Missing")
            (acet-ini-get "settings.ini" "Paths" "Missing" "")
            (acet-ini-get "settings.ini" "Paths" "Missing" 5)))

(title "a missing section, or one in other case: nil, even with a default")
(show-all '((acet-ini-get "settings.ini" "Missing" "Fonts" "default")
            (acet-ini-get "settings.ini" "paths" "Fonts" "default")
            (acet-ini-get "settings.ini" "paths")))

(title "a missing file: nil, even with a default, and none is made")
(show-all '((acet-ini-get "missing.ini")
            (acet-ini-get "missing.ini" "Paths" "Fonts" "default")
            (findfile "missing.ini")))

(title "an empty file has no sections")
(write-file "empty.ini" "")
(show-all '((acet-ini-get "empty.ini")
            (acet-ini-get "empty.ini" "Paths" "Fonts" "default")))

(title "arguments that are missing or of another type")
(show-all '((acet-ini-get)
            (acet-ini-get nil "Paths")
            (acet-ini-get 5)))
