-- Reading a packet: nothing is ever read beyond its end, so nothing that it says can raise an error.

local CELL = 4

local Reader = {}
Reader.__index = Reader

-- @param first where the data begin, objects what lies in them: an identity by offset.
function Reader.new(tvb, first, objects)
    return setmetatable({tvb = tvb, raw = tvb:raw(), first = first, pos = first, objects = objects, cut = false}, Reader)
end

function Reader:remaining()
    return #self.raw - self.pos
end

-- The next bytes, filled up to whole cells; nil, and the reader is at its end, when they are not there.
function Reader:take(size)
    if self.cut or size < 1 or size > self:remaining() then
        self.cut = true
        return nil
    end
    local range = self.tvb(self.pos, size)
    self.pos = math.min(self.pos + math.ceil(size / CELL) * CELL, #self.raw)
    return range
end

function Reader:word()
    local range = self:take(CELL)
    if not range then return nil end
    return range:le_int(), range
end

-- As many bytes as a NUL needs to be reached, and the text in front of it.
function Reader:text()
    local nul = not self.cut and self.raw:find("\0", self.pos + 1, true)
    if not nul then
        self.cut = true
        return nil
    end
    local text = self.raw:sub(self.pos + 1, nul - 1)
    return self:take(#text + 1), text
end

-- The name in an interface token, whose characters are all of one byte.
function Reader:utf16()
    local length = self:word()
    if not length or length < 0 then return nil end
    local range = self:take((length + 1) * 2)
    return range and range(0, length * 2 > 0 and length * 2 or 1):raw():gsub("%z", "") or nil
end
