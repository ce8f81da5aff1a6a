local function fib(n)
    if n < 2 then
        return n
    end
    return fib(n - 1) + fib(n - 2)
end

local result
for _ = 1, 20 do
    result = fib(27)
end
io.write(result)
