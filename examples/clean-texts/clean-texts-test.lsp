;;; Tests of clean-texts: lisphost test examples/clean-texts

;; The program runs when it is loaded; without its list it only says so.
(setq *arguments* '("list=there is none"))
(setq said (capture-output '(load "clean-texts.lsp")))

(defun test-a-missing-list-is-reported ()
  (assert-equal "There is no list there is none\n" said))

(defun test-codes-of-fonts-and-underlines-go ()
  (assert-equal "Kitchen" (clean "{\\fArial|b1;Kitch%%uen}" nil '("codes"))))

(defun test-blanks-become-one-and-none-at-the-ends ()
  (assert-equal "a b" (clean "  a \t  b " nil '("blanks"))))

(defun test-a-comma-between-digits-is-a-point ()
  (assert-equal "12.5 m, wide" (clean "12,5 m, wide" nil '("measures"))))

(defun test-words-keep-their-case-unless-it-is-ignored ()
  (assert-equal "RM. 5" (clean "RM. 5" nil '("words")))
  (assert-equal "room 5" (clean "RM. 5" T '("words"))))

(defun test-options-that-are-given-win-over-stored-ones ()
  (store-options '(("line" "%2")))
  (assert-equal '("line" "%2" " (kept)") (read-option "line" "%1"))
  (setq *arguments* '("line=%1!"))
  (assert-equal '("line" "%1!" "") (read-option "line" "%1")))
