(c:label-blocks)
