(define (build count)
  (let loop ((i 0) (text ""))
    (if (< i count)
        (loop (+ i 1) (string-append text (number->string (remainder i 10))))
        text)))

(define result #f)
(do ((k 0 (+ k 1))) ((= k 2)) (set! result (build 50000)))
(display (string-length result))
