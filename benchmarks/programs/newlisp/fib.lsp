(define (fib n)
  (if (< n 2)
    n
    (+ (fib (- n 1)) (fib (- n 2)))))

(dotimes (_ 20) (set 'result (fib 27)))
(print result)
(exit)
