(use-modules (srfi srfi-1))

(define (numbers count)
  (let loop ((k 0) (x 1) (result '()))
    (if (< k count)
        (let ((next (remainder (+ (* x 10005) 12345) 131072)))
          (loop (+ k 1) next (cons next result)))
        result)))

(define (check-sum numbers)
  (fold (lambda (x sum) (remainder (+ (* sum 31) x) 65521)) 0 numbers))

(define unsorted (numbers 100000))
(define result #f)
(do ((k 0 (+ k 1))) ((= k 5)) (set! result (check-sum (sort unsorted <))))
(display result)
