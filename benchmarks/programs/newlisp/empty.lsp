(exit)
