local function countUp(limit)
    local i, sum = 0, 0
    while i < limit do
        sum = i - sum
        i = i + 1
    end
    return sum
end

local result
for _ = 1, 10 do
    result = countUp(2000000)
end
io.write(result)
