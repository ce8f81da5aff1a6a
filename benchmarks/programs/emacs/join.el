;;; -*- lexical-binding: t -*-
(defun build (count)
  (let ((i 0)
        (pieces nil))
    (while (< i count)
      (push (number-to-string i) pieces)
      (setq i (+ i 1)))
    (apply #'concat (nreverse pieces))))

(let (result)
  (dotimes (_ 20) (setq result (build 50000)))
  (princ (length result)))
