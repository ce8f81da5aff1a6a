;;; -*- lexical-binding: t -*-
(defun count-up (limit)
  (let ((i 0)
        (sum 0))
    (while (< i limit)
      (setq sum (- i sum)
            i (+ i 1)))
    sum))

(let (result)
  (dotimes (_ 10) (setq result (count-up 2000000)))
  (princ result))
