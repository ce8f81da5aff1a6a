;;; -*- lexical-binding: t -*-
(defun numbers (count)
  (let ((result nil))
    (while (< 0 count)
      (setq count (- count 1))
      (push (% count 1000) result))
    result))

(let ((elements (numbers 200000))
      result)
  (dotimes (_ 20)
    (setq result (apply #'+ (mapcar (lambda (x) (- (* 2 x) 7)) elements))))
  (princ result))
