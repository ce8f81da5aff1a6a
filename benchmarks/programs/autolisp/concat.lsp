(defun build (count / i text)
  (setq i 0
        text "")
  (while (< i count)
    (setq text (strcat text (itoa (rem i 10)))
          i (+ i 1)))
  text)

(princ (strlen (build 50000)))
