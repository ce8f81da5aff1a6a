;;; -*- lexical-binding: t -*-
(defun build (count)
  (let ((i 0)
        (text ""))
    (while (< i count)
      (setq text (concat text (number-to-string (% i 10)))
            i (+ i 1)))
    text))

(let (result)
  (dotimes (_ 2) (setq result (build 50000)))
  (princ (length result)))
