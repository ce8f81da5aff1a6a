#pragma once

#include "host/commands/Session.h"

class Document;

// A document as its command line sees it.
class DocumentSession final : public commands::Session
{
public:
    explicit DocumentSession(Document &document) : m_document(document) {}

    drawing::Drawing &drawing() override;
    selection::EntityIndex &entityIndex() override;
    void openDrawing(const QString &path) override;
    bool plot(const commands::PlotJob &job, std::u16string &failure) override;
    std::optional<commands::VariableValue> variable(std::u16string_view name) const override;
    void assign(std::u16string_view name, const commands::VariableValue &value) override;
    bool set(std::u16string_view name, const commands::VariableValue &value) override;
    void readVariables() override;
    bool isPaperSpaceCurrent() const override;
    drawing::RecordId currentViewport() const override;
    bool workThroughViewport() override;
    void workOnPaper() override;
    std::optional<commands::Point> pointOf(std::u16string_view text) const override;
    std::optional<double> distanceOf(std::u16string_view text) const override;
    std::optional<double> angleOf(std::u16string_view text) const override;
    std::u16string distanceText(double distance) const override;
    std::u16string angleText(double angle) const override;
    std::optional<QString> findFile(const std::u16string &name) const override;
    std::optional<std::u16string> scriptText(const std::u16string &name) override;
    bool evaluate(const std::u16string &expression, std::optional<commands::Input> &answer) override;
    void print(std::u16string_view text) override;
    std::optional<commands::Input> request(commands::InputKind kind, const std::u16string &prompt,
                                           const std::optional<commands::Point> &base,
                                           const std::optional<snap::Modes> &snap) override;
    const commands::Selection &previousSelection() const override { return m_previousSelection; }
    void setPreviousSelection(commands::Selection selection) override { m_previousSelection = std::move(selection); }
    commands::Selection takeImpliedSelection() override { return std::exchange(m_impliedSelection, {}); }
    void pulse() override;
    void showSelected(const commands::Selection &entities) override;
    void setImpliedSelection(commands::Selection selection) override { m_impliedSelection = std::move(selection); }
    const commands::Selection &impliedSelection() const { return m_impliedSelection; }
    void forgetSelections(); // they are of a drawing that is gone

private:
    Document &m_document;
    unsigned m_pulses = 0;
    commands::Selection m_previousSelection, m_impliedSelection;
};
