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

// Shows the floating bar beside the selection and the palette that it opens. Both
// follow the editor's state and only report what was clicked.
class ToolBars {
public:
    // Takes the space and the state, which must outlive this object. The bars
    // belong to the overlay.
    ToolBars(QWidget &overlay, const ViewSpace &space, const EditorState &state);

    std::function<void(Tool)> onTool;
    std::function<void(Command)> onCommand;
    std::function<void(const QColor &)> onColor;
    // Called before a button acts. When it returns false, the button does nothing.
    std::function<bool()> mayAct;

    // Shows the bar where it belongs, or hides it. Must be called after every
    // change of the selection.
    void placeBars();
    // Hides the bar until it is placed again, so that what lies under it can be
    // seen and clicked.
    void hideBar();
    // Fades the bar out for a pointer that comes near while drawing, and in again
    // when it is absent.
    void fadeBar(std::optional<QPointF> near);
    // Shows the state's tool, colour and width. Must be called after every change
    // of them.
    void followState();
    void closePalette();

    [[nodiscard]] bool barShows() const;
    [[nodiscard]] Bar &bar() { return *m_bar; }

private:
    struct Words {
        QString name, toolTip;
        QString keys; // as they are written
    };
    BarButton *add(QStringView symbol, const Words &words, std::function<void()> action);
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
