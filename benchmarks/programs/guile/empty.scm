#t
