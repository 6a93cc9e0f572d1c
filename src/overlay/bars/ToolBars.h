#pragma once

#include "base/ViewSpace.h"
#include "marks/EditorState.h"
#include "overlay/Command.h"
#include "overlay/bars/BarPlacement.h"

#include <QPointer>
#include <QVariantAnimation>

#include <functional>
#include <map>
#include <optional>

class Bar;
class BarButton;
class ColorPalette;

// The floating bar beside the selection and the palette that it opens. They
// follow the editor's state and only say what was clicked.
class ToolBars {
public:
    // Both must outlive it; the bars belong to the overlay.
    ToolBars(QWidget &overlay, const ViewSpace &space, const EditorState &state);

    std::function<void(Tool)> onTool;
    std::function<void(Command)> onCommand;
    std::function<void(const QColor &)> onColor;
    // Asked before a button does anything; it does nothing when the answer is no.
    std::function<bool()> mayAct;

    // After every change of the selection: shows the bar where it belongs, or
    // hides it.
    void placeBars();
    // Until it is placed again; what lies under it can be seen and clicked.
    void hideBar();
    // Makes way for a pointer that comes near while drawing; absent when it has
    // gone.
    void fadeBar(std::optional<QPointF> near);
    // After a change of tool, colour or width.
    void followState();
    void closePalette();

    [[nodiscard]] bool barShows() const;

private:
    BarButton *add(QStringView symbol, const QString &toolTip, const QString &name,
                   std::function<void()> action);
    void addTools();
    void addCommands();
    void fitToWidth();
    void showPalette();
    void placePalette();

    QWidget &m_overlay;
    const ViewSpace &m_space;
    const EditorState &m_state;
    Bar *m_bar;
    std::map<Tool, BarButton *> m_toolButtons;
    BarButton *m_colorButton = nullptr;
    BarButton *m_copyButton = nullptr;
    QPointer<ColorPalette> m_palette;
    BarPlacement::Place m_place{{}, true}; // view points
    QVariantAnimation m_fade;
};
