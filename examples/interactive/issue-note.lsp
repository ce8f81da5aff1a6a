;;; ISSUE-NOTE: asks what a drawing is issued for, lets the user edit the note, and writes it beside the drawing.

(defun write-note (name text / file)
  (setq file (open name "w"))
  (write-line text file)
  (close file))

;; Yes: write; No: edit again; Cancel: leave everything as it is.
(defun confirmed-note (text / answer)
  (setq answer 7)
  (while (and text (= answer 7))
    (if (setq text (acet-ui-txted text "Issue note" "&Note"))
      (setq answer (acet-ui-message (strcat "Write this note?\\n\\n" text) "Issue note" (+ 3 32)))))
  (if (= answer 6) text))

(defun c:issue-note (/ purpose text name)
  (initget "Tender Construction Record")
  (setq purpose (cond ((getkword "\nIssued for [Tender/Construction/Record] <Tender>: ")) ("Tender")))
  (setq text (confirmed-note (strcat "Issued for " (strcase purpose T) ".")))
  (cond ((null text) (princ "\nNothing written."))
        ((setq name (acet-file-writedialog "Save the note" "." "Texts (*.txt)" "" 0))
         (write-note name text)
         (princ "\nNote written.")))
  (princ))

(c:issue-note)
