local function build(count)
    local i, pieces = 0, {}
    while i < count do
        pieces[#pieces + 1] = tostring(i)
        i = i + 1
    end
    return table.concat(pieces)
end

local result
for _ = 1, 20 do
    result = build(50000)
end
io.write(#result)
