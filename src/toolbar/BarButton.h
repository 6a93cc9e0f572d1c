#pragma once

#include "toolbar/BarButtonPaint.h"

#include <QAbstractButton>
#include <QVariantAnimation>

#include <functional>

// Names how fast the background fades. A press fades twice as fast as hovering.
enum class Speed { normal, fast };

// Draws one button of a bar. It never takes the keyboard focus from the editor
// around it.
class BarButton final : public QAbstractButton {
    Q_OBJECT

public:
    explicit BarButton(const QString &symbol, QWidget *parent = nullptr);

    [[nodiscard]] const BarButtonState &state() const { return m_state; }
    void setActive(bool active);
    void setPrimary(bool primary);
    void setSwatch(const std::optional<QColor> &color);
    void setWidthLabel(const std::optional<QString> &text);
    void setLabel(const std::optional<QString> &text);
    void setKeyHint(const std::optional<QString> &text);
    void setDotColor(const std::optional<QColor> &color);

    // Starts fading the background from the colour shown now to the one that the
    // state asks for.
    void refresh(Speed speed);

    [[nodiscard]] double preferredWidth() const; // points
    [[nodiscard]] QSize sizeHint() const override;

    // Called when the button may need another width, or looks different.
    std::function<void()> onWidthChanged;
    std::function<void()> onLookChanged;

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void setHovering(bool hovering);
    void setPressed(bool pressed);
    void redraw();
    void widthChanged();

    BarButtonState m_state;
    QColor m_background;
    QVariantAnimation m_fade;
};
