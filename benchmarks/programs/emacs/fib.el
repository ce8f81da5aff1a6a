;;; -*- lexical-binding: t -*-
(defun fib (n)
  (if (< n 2)
      n
    (+ (fib (- n 1)) (fib (- n 2)))))

(let (result)
  (dotimes (_ 20) (setq result (fib 27)))
  (princ result))
