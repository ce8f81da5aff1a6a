;;; Loaded before each program here: shows an expression and its value, and makes small text files.

(defun show (expression / its-value)
  (setq its-value (eval expression))
  (print expression)
  (princ "=> ")
  (prin1 its-value)
  (princ))

(defun show-all (expressions)
  (foreach expression expressions (show expression)))

(defun title (text)
  (princ (strcat "\n\n; " text)))

(defun write-file (name text / file)
  (setq file (open name "w"))
  (princ text file)
  (close file)
  name)

(defun lines-of (name / file line result)
  (setq file (open name "r"))
  (while (setq line (read-line file)) (setq result (cons line result)))
  (close file)
  (reverse result))
