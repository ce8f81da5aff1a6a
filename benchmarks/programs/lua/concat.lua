local function build(count)
    local i, text = 0, ""
    while i < count do
        text = text .. tostring(i % 10)
        i = i + 1
    end
    return text
end

io.write(#build(50000))
