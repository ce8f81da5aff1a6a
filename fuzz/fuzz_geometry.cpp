// Drawings of any content: every entity has its extents or none, and its curves can be flattened, in a time that does
// not grow without bounds.

#include "host/drawing/geometry/Extents.h"
#include "host/drawing/geometry/Flatten.h"

#include <cstdint>
#include <cstdlib>

namespace {

class FlatteningSink final : public geometry::ShapeSink
{
public:
    void path(const geometry::Path &path, const geometry::Origin &) override
    {
        if (m_paths++ < MostPaths)
            geometry::flattened(path, 0.5);
    }

private:
    static constexpr int MostPaths = 1000;
    int m_paths = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const drawing::Drawing drawing(std::make_unique<drawing::Database>(bytes));
    for (drawing::RecordId id = 0; id < drawing.database().recordCount(); ++id) {
        const auto box = geometry::extentsOf(drawing, id);
        if (box && box->isEmpty())
            std::abort();
        FlatteningSink sink;
        geometry::shapesOf(drawing, id, sink);
    }
    return 0;
}
