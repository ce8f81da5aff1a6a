;;; Cleans texts of a drawing and shows what became of them:
;;;
;;;     lisphost run clean-texts.lsp -- [list=FILE] [rules=NAME,...] [line=FORMAT] [case=match|ignore]
;;;
;;; The list file has one text on each line. An option that is not given is as it was in the last run: the options are
;;; kept in the profile store.

(defun show (text)
  (princ (strcat text "\n")))

;;; ---- Rules ----------------------------------------------------------------------------------------------------

;; Name and steps of each rule. A step is a pattern, its replacement, and whether it is a regular expression.
(setq all-rules
  '(("codes"    ("\\\\[A-Za-z][^;\\\\{}]*;" "" T)   ; \fArial|b1; and its like
                ("[{}]" "" T)
                ("%%[uok]" "" T))                   ; underlined and the like, in the older way
    ("blanks"   ("\\s+" " " T)
                ("^ | $" "" T))
    ("measures" ("(\\d),(\\d)" "\\1.\\2" T))
    ("words"    ("rm." "room" nil)
                ("m2" "m²" nil))))

(defun clean (text ignore-case names)
  (foreach name names
    (foreach step (cdr (assoc name all-rules))
      (setq text (acet-str-replace (car step) (cadr step) text ignore-case (caddr step)))))
  text)

;;; ---- Options --------------------------------------------------------------------------------------------------

;; Name, and the value in the first run of all.
(setq all-options
  '(("list"  "texts.txt")
    ("rules" "codes,blanks,measures,words")
    ("line"  "%1: %2")
    ("case"  "match")))

;; "a,b" as ("a" "b")
(defun parts (text separator / position)
  (if (setq position (acet-str-find separator text))
    (cons (substr text 1 (1- position)) (parts (substr text (1+ position)) separator))
    (list text)))

(defun stored-name (option)
  (strcat "clean-texts " option))

;; nil when there is no such argument
(defun given (option / value)
  (foreach argument *arguments*
    (if (= (acet-str-find (strcat option "=") argument) 1)
      (setq value (substr argument (+ (strlen option) 2)))))
  value)

;; "" for what the store does not know.
(defun stored (option)
  (acet_get_config (stored-name option)))

;; As given, else as in the last run, else as in the first run of all; with a word on where it comes from.
(defun read-option (option default)
  (cond ((given option)         (list option (given option) ""))
        ((/= (stored option) "") (list option (stored option) " (kept)"))
        (T                      (list option default " (default)"))))

(defun read-options ()
  (mapcar '(lambda (each) (apply 'read-option each)) all-options))

(defun store-options (options)
  (foreach each options
    (acet_set_config (stored-name (car each)) (cadr each))))

(defun option (name)
  (cadr (assoc name options)))

;; Numbers are stored with a mark in front: INT__2. The first run finds nothing.
(defun count-run (/ runs)
  (setq runs (1+ (atoi (substr (acet-var-getvar "clean-texts runs") 6))))
  (acet-var-setvar "clean-texts runs" runs)
  runs)

;;; ---- Texts ----------------------------------------------------------------------------------------------------

(defun texts-in (name / file line texts)
  (setq file (open name "r"))
  (while (setq line (read-line file))
    (setq texts (cons line texts)))
  (close file)
  (reverse texts))

(defun show-cleaned (texts / number changed cleaned)
  (setq number 0 changed 0)
  (foreach text texts
    (setq number (1+ number)
          cleaned (clean text (= (option "case") "ignore") (parts (option "rules") ",")))
    (if (/= cleaned text) (setq changed (1+ changed)))
    (show (acet-str-format (option "line") number cleaned text)))
  (show (acet-str-format "%1 of %2 texts changed" changed number)))

(defun show-options (run)
  (show (acet-str-format "Run %1" run))
  (foreach each options
    (show (strcat "  " (car each) "=" (cadr each) (caddr each)))))

;; Why the options cannot be used; nil when they can.
(defun fault (/ unknown)
  (setq unknown (vl-remove-if '(lambda (name) (assoc name all-rules)) (parts (option "rules") ",")))
  (cond (unknown (acet-str-format "There is no rule %1" (car unknown)))
        ((not (findfile (option "list"))) (acet-str-format "There is no list %1" (option "list")))))

(setq options (read-options))
(cond ((fault) (show (fault)))
      (T (show-options (count-run))
         (show-cleaned (texts-in (option "list")))
         (store-options options)))
(princ)
