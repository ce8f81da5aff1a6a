(define (build count)
  (let loop ((i 0) (text ""))
    (if (< i count)
        (loop (+ i 1) (string-append text (number->string (remainder i 10))))
        text)))

(display (string-length (build 50000)))
