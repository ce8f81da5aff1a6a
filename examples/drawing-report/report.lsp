;;; Reports on the drawings of a project, moves the superseded ones to the archive and notes in the settings what it
;;; did. Works in the current folder, which holds report.ini and the drawings:  lisphost run report.lsp

(load "dxf.lsp")

(setq settings-file "report.ini")

(defun setting (section key default)
  (acet-ini-get settings-file section key default))

(defun show (text)
  (princ (strcat text "\n")))

(defun column (text width)
  (while (< (strlen text) width) (setq text (strcat text " ")))
  text)

(defun column-right (text width)
  (while (< (strlen text) width) (setq text (strcat " " text)))
  text)

;; "a, b, c"
(defun listed (names)
  (apply 'strcat (cons (car names) (mapcar '(lambda (name) (strcat ", " name)) (cdr names)))))

;;; ---- Drawings -------------------------------------------------------------------------------------------------

(defun drawings-below (folder / found)
  (foreach name (vl-directory-files folder "*.dxf" 1)
    (setq found (cons (strcat folder "/" name) found)))
  (foreach name (vl-directory-files folder nil -1)
    (if (not (member name '("." "..")))
      (setq found (append (drawings-below (strcat folder "/" name)) found))))
  found)

(defun drawing-name (path) (vl-filename-base path))

;; By name, whatever its case; drawings of one name by their folders, so that no two count as the same.
(defun drawing-before-p (one other / order)
  (setq order (acet-str-collate (drawing-name one) (drawing-name other)))
  (if (zerop order) (setq order (acet-str-collate one other 1)))
  (minusp order))

(defun sorted-drawings (folder)
  (vl-sort (drawings-below folder) 'drawing-before-p))

;; The names that several drawings share; neighbours in a sorted list.
(defun shared-names (paths / names)
  (mapcar '(lambda (one other)
             (if (acet-str-equal (drawing-name one) (drawing-name other))
               (setq names (cons (drawing-name other) names))))
          paths
          (cdr paths))
  (reverse names))

;;; ---- Table of drawings ----------------------------------------------------------------------------------------

(defun entities-in (counts) (apply '+ (mapcar 'cdr counts)))

(defun per-layer (entities layers / share)
  (setq share (vl-catch-all-apply '/ (list (float entities) (length layers))))
  (if (vl-catch-all-error-p share)
    (vl-catch-all-error-message share)
    (rtos share 2 1)))

(defun show-drawing (path / summary layers entities)
  (setq summary (dxf:summary path)
        layers (car summary)
        entities (entities-in (cadr summary)))
  (show (strcat "  " (column (drawing-name path) 16) (column (vl-filename-directory path) 22)
                (column-right (itoa entities) 8) (column-right (itoa (length layers)) 8)
                "  " (per-layer entities layers))))

(defun show-drawings (paths)
  (show (strcat "  " (column "Drawing" 16) (column "Folder" 22) "Entities  Layers  Per layer"))
  (foreach path paths (show-drawing path)))

;;; ---- Checks ---------------------------------------------------------------------------------------------------

;; A check is an expression in the settings. It sees the drawing's layers, counts and entities, and may be faulty.
(defun check-drawing (expression path / layers counts entities verdict)
  (setq layers (car (dxf:summary path))
        counts (cadr (dxf:summary path))
        entities (entities-in counts))
  (vl_catch_all_apply (strcat "(setq verdict " expression ")"))
  (cond ((vl_catch_all_error_p) 'faulty)
        (verdict 'passed)
        ('failed)))

(defun show-check (name paths / expression results failures)
  (setq expression (setting "Checks" name nil)
        results (mapcar '(lambda (path) (cons (check-drawing expression path) path)) paths)
        failures (vl-remove-if-not '(lambda (result) (eq (car result) 'failed)) results))
  (show (strcat "  " (column name 18)
                (cond ((assoc 'faulty results) (strcat "cannot be evaluated: " expression))
                      (failures (strcat "fails for " (listed (mapcar 'drawing-name (mapcar 'cdr failures)))))
                      ("passes everywhere")))))

;;; ---- Archive --------------------------------------------------------------------------------------------------

(defun read-only-p (path) (= 1 (logand 1 (acet-file-attr path))))

(defun make-read-only (path)
  (acet-file-attr path (logior 1 (acet-file-attr path))))

;; Never replaces a drawing that is in the archive already.
(defun archive-drawing (path archive / target)
  (setq target (strcat archive "/" (drawing-name path) (vl-filename-extension path)))
  (show (strcat "  " (column (drawing-name path) 18)
                (cond ((not (acet-file-mkdir archive)) "stays: there is no archive")
                      ((not (acet-file-move path target)) (strcat "stays: " target " is there already"))
                      (t (make-read-only target)
                         (strcat "moved to " archive (if (read-only-p target) ", read-only" "")))))))

(defun superseded-p (path)
  (wcmatch (drawing-name path) (setting "Project" "Superseded" "*-old")))

;;; ---- The report -----------------------------------------------------------------------------------------------

(defun drawing-report (/ folder archive paths shared superseded)
  (setq folder (setting "Folders" "Drawings" ".")
        archive (setting "Folders" "Archive" "archive")
        paths (sorted-drawings folder)
        shared (shared-names paths)
        superseded (vl-remove-if-not 'superseded-p paths))
  (show (strcat "DRAWINGS OF " (_xstrcase (setting "Project" "Name" "no name"))))
  (show (strcat "in " (acet-file-cwd) "\n"))
  (show-drawings paths)
  (show (strcat "\nOne name, several drawings: " (if shared (listed shared) "none")))
  (show "\nChecks")
  (foreach name (acet-ini-get settings-file "Checks") (show-check name paths))
  (show "\nSuperseded drawings")
  (foreach path superseded (archive-drawing path archive))
  (acet-ini-set settings-file "Last run" "Drawings" (itoa (length (drawings-below folder))))
  (acet-ini-set settings-file "Last run" "Archived" (itoa (length (drawings-below archive))))
  (show (strcat "\nThe settings now say: " (setting "Last run" "Drawings" "?") " drawings, "
                (setting "Last run" "Archived" "?") " in the archive."))
  (princ))

(drawing-report)
