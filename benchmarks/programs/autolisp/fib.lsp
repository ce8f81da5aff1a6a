(defun fib (n)
  (if (< n 2)
    n
    (+ (fib (- n 1)) (fib (- n 2)))))

(repeat 20 (setq result (fib 27)))
(princ result)
