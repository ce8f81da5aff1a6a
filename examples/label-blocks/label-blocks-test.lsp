;;; Tests of label-blocks: lisphost test examples/label-blocks

(load "plan.lsp")
(load "label-blocks.lsp")

(defun number-of-texts (/ texts)
  (if (setq texts (ssget "X" '((0 . "TEXT")))) (sslength texts) 0))

(defun test-a-block-that-is-picked-is-turned-labelled-and-linked (/ said desk)
  (answer-with "22,50" "@move 38,50" "30,60" "34,42" "")
  (setq said (capture-output '(c:label-blocks))
        desk (ssname (ssget "X" '((2 . "DESK") (10 30.0 50.0 0.0))) 0))
  (assert-equal (/ pi 2) (value 50 (entget desk)) 1e-9)
  (assert-equal "https://catalogue.example/desk/1" (geturl desk))
  (assert-equal "DESK-1" (value 1 (entget (entlast))))
  (assert (wcmatch said "*DESK: turned by 90`.0 degrees`, https:*")))

(defun test-a-word-leaves-the-block-as-it-is (/ chair)
  (answer-with "73,20" "Keep" "74,14" "")
  (c:label-blocks)
  (setq chair (ssname (ssget "X" '((2 . "CHAIR") (10 70.0 20.0 0.0))) 0))
  (assert-equal 0.0 (value 50 (entget chair)))
  (assert-equal 1 (number-of-texts)))

(defun test-what-is-no-block-is-refused ()
  (answer-with "50,0" "")
  (assert (wcmatch (capture-output '(c:label-blocks)) "*That is no block.*"))
  (assert-equal 0 (number-of-texts)))
