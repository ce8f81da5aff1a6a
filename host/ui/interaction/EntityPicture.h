#pragma once

#include "host/drawing/geometry/Matrix.h"
#include "host/render/Scene.h"
#include "host/ui/view/DrawingView.h"

// Entities of the space that is worked on, drawn wider and in one colour over the picture that they are part of.
class EntityPicture final : public ViewOverlay
{
public:
    using Source = std::function<const drawing::Drawing &()>;
    explicit EntityPicture(Source source) : m_source(std::move(source)) {}

    // As a transformation of the world places them; erased ones are passed over, and all once another drawing is open.
    // Of very many only the first are shown.
    void show(std::vector<drawing::RecordId> entities, const geometry::Matrix &transform = {});
    void hide() { show({}); }
    const std::vector<drawing::RecordId> &entities() const { return m_entities; }
    void drawAnew() { m_scene.reset(); } // the drawing has changed

    void paint(QPainter &painter, const DrawingView &view) override;

private:
    std::vector<drawing::RecordId> seenEntities(const DrawingView &view) const;
    bool isSceneFor(const DrawingView &view) const;
    void makeScene(const DrawingView &view);
    void makeImage(const DrawingView &view);

    Source m_source;
    std::vector<drawing::RecordId> m_entities;
    std::uint32_t m_drawingNumber = 0; // of the drawing that they are in
    geometry::Matrix m_transform;
    std::optional<render::Scene> m_scene;
    QRgb m_color = 0;         // of the scene
    geometry::Matrix m_space; // of the scene
    QImage m_image;           // of the scene, as m_shown says
    QTransform m_shown;
};
