;;; Reads what the report needs from a drawing in DXF form: groups of two lines, a code and its value.

(defun dxf:group (file / code)
  (if (setq code (read-line file))
    (cons (atoi code) (vl-string-trim " " (read-line file)))))

;; How often each kind of entity occurs: (("LINE" . 4) ("TEXT" . 1)).
(defun dxf:count (kind counts / entry)
  (if (setq entry (assoc kind counts))
    (subst (cons kind (1+ (cdr entry))) entry counts)
    (cons (cons kind 1) counts)))

;; Gives (LAYERS COUNTS) of the drawing: the names in its layer table and its entities by kind.
;; A file that cannot be opened makes read-line fail; the caller traps that.
(defun dxf:summary (path / file group section table layers counts)
  (setq file (open path "r"))
  (while (and (setq group (dxf:group file)) (not (equal group '(0 . "EOF"))))
    (cond
      ((equal group '(0 . "SECTION")) (setq section (cdr (dxf:group file))))
      ((equal group '(0 . "ENDSEC")) (setq section nil))
      ((equal group '(0 . "LAYER")) (setq table "LAYER"))
      ((equal group '(0 . "ENDTAB")) (setq table nil))
      ((and (= section "TABLES") (= table "LAYER") (= (car group) 2))
        (setq layers (cons (cdr group) layers)))
      ((and (= section "ENTITIES") (= (car group) 0))
        (setq counts (dxf:count (cdr group) counts)))))
  (close file)
  (list (reverse layers) counts))
