#pragma once

#include "toolbar/BarButtonPaint.h"

#include <QAbstractButton>
#include <QVariantAnimation>

#include <functional>

// A press answers twice as fast as the pointer passing over.
enum class Speed { normal, fast };

// One entry of a bar. It is drawn whole and never takes the keyboard from the
// editor around it.
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

    // Lets the background fade from what shows now to what the state asks for.
    void refresh(Speed speed);

    [[nodiscard]] double preferredWidth() const; // points
    [[nodiscard]] QSize sizeHint() const override;

    // Tell the bar that the button may need another width, or looks different.
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
