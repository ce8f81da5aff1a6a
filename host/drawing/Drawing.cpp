#include "host/drawing/Drawing.h"

#include "host/drawing/NewDrawing.h"

namespace drawing {

namespace {

std::uint32_t nextNumber()
{
    static std::uint32_t last = 0;
    return ++last;
}

} // namespace

Drawing::Drawing() : m_database(std::make_unique<Database>(newDrawing())), m_number(nextNumber()) {}

Drawing::Drawing(const QString &path, const ReadWatch &watch)
    : m_database(Database::read(path, watch)), m_path(path), m_number(nextNumber())
{
}

Drawing::Drawing(std::unique_ptr<Database> database) : m_database(std::move(database)), m_number(nextNumber()) {}

} // namespace drawing
