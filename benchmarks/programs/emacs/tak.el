;;; -*- lexical-binding: t -*-
(defun tak (x y z)
  (if (< y x)
      (tak (tak (- x 1) y z) (tak (- y 1) z x) (tak (- z 1) x y))
    z))

(let (result)
  (dotimes (_ 150) (setq result (tak 18 12 6)))
  (princ result))
