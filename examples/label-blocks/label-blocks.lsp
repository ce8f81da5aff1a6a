;;; LABEL-BLOCKS: each block that is picked is turned by dragging, labelled and linked to its page in the catalogue; at
;;; the end a report.

(setq catalogue "https://catalogue.example/%1/%2")

(defun value (code data)
  (cdr (assoc code data)))

;; A pick turns the block; a word, Enter or Esc leaves it as it is.
(defun turn (block / data angle)
  (setq data (entget block)
        angle (acet-ss-drag-rotate (ssadd block) (value 10 data) "\nSpecify rotation or [Keep]: "))
  (if (numberp angle)
    (entmod (subst (cons 50 angle) (assoc 50 data) data))))

(defun label (block text / place)
  (if (setq place (getpoint (value 10 (entget block)) "\nPlace of the label: "))
    (entmake (list '(0 . "TEXT") (cons 10 place) '(40 . 2.5) (cons 1 text)))))

(defun report (blocks)
  (foreach block (reverse blocks)
    (princ (acet-str-format "\n%1: turned by %2 degrees, %3" (value 2 (entget block))
                            (angtos (value 50 (entget block)) 0 1) (geturl block)))))

(defun c:label-blocks (/ pick block name number blocks)
  (setq number 0)
  (while (setq pick (entsel "\nPick a block or press Enter: "))
    (setq block (car pick) name (value 2 (entget block)))
    (cond ((/= (value 0 (entget block)) "INSERT") (princ "\nThat is no block."))
          (T (setq number (1+ number) blocks (cons block blocks))
             (turn block)
             (label block (acet-str-format "%1-%2" name number))
             (seturl block (acet-str-format catalogue (strcase name T) number)))))
  (report blocks)
  (princ))
