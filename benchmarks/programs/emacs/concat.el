;;; -*- lexical-binding: t -*-
(defun build (count)
  (let ((i 0)
        (text ""))
    (while (< i count)
      (setq text (concat text (number-to-string (% i 10)))
            i (+ i 1)))
    text))

(princ (length (build 50000)))
