local function build(count)
    local i, text = 0, ""
    while i < count do
        text = text .. tostring(i % 10)
        i = i + 1
    end
    return text
end

local result
for _ = 1, 2 do
    result = build(50000)
end
io.write(#result)
