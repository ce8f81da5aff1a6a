(defun build (count / i pieces)
  (setq i 0)
  (while (< i count)
    (setq pieces (cons (itoa i) pieces)
          i (+ i 1)))
  (apply 'strcat (reverse pieces)))

(repeat 20 (setq result (build 50000)))
(princ (strlen result))
