;;; -*- lexical-binding: t -*-
(defun numbers (count)
  (let ((x 1)
        (result nil))
    (dotimes (_ count)
      (setq x (% (+ (* x 10005) 12345) 131072))
      (push x result))
    result))

(defun check-sum (numbers)
  (let ((sum 0))
    (dolist (x numbers) (setq sum (% (+ (* sum 31) x) 65521)))
    sum))

(let ((unsorted (numbers 100000))
      result)
  (dotimes (_ 5) (setq result (check-sum (sort (copy-sequence unsorted) #'<))))
  (princ result))
