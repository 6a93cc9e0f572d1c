#include "access/Spoken.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QVariant>

namespace {

constexpr auto roleProperty = "spokenRole";
constexpr auto keysProperty = "spokenKeys";
constexpr auto onProperty = "spokenOn";
constexpr auto openProperty = "spokenOpen";

class SpokenWidget final : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    QAccessible::Role role() const override
    {
        return static_cast<QAccessible::Role>(widget()->property(roleProperty).toInt());
    }

    QString text(QAccessible::Text kind) const override
    {
        const QVariant keys = widget()->property(keysProperty);
        if (kind == QAccessible::Accelerator && keys.isValid())
            return keys.toString();
        if (kind == QAccessible::Description && keys.isValid())
            return widget()->accessibleDescription();
        return QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        const QVariant on = widget()->property(onProperty);
        state.checkable = on.isValid();
        state.checked = on.toBool();
        const QVariant open = widget()->property(openProperty);
        state.hasPopup = state.expandable = open.isValid();
        state.expanded = open.toBool();
        state.collapsed = open.isValid() && !open.toBool();
        return state;
    }

    QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (button())
            names.prepend(pressAction());
        return names;
    }

    void doAction(const QString &action) override
    {
        if (action == pressAction() && button())
            button()->click();
        else
            QAccessibleWidget::doAction(action);
    }

    QStringList keyBindingsForAction(const QString &action) const override
    {
        const QString keys = widget()->property(keysProperty).toString();
        return action == pressAction() && !keys.isEmpty() ? QStringList{keys} : QStringList();
    }

private:
    [[nodiscard]] QAbstractButton *button() const { return qobject_cast<QAbstractButton *>(widget()); }
};

QAccessibleInterface *make(const QString &, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    return widget && widget->property(roleProperty).isValid() ? new SpokenWidget(widget) : nullptr;
}

void set(QWidget &widget, const char *property, bool value, const QAccessible::State &changed)
{
    if (widget.property(property) == value)
        return;
    widget.setProperty(property, value);
    if (!QAccessible::isActive())
        return;
    QAccessibleStateChangeEvent event(&widget, changed);
    QAccessible::updateAccessibility(&event);
}

} // namespace

namespace Spoken {

void setRole(QWidget &widget, QAccessible::Role role)
{
    QAccessible::installFactory(make);
    widget.setProperty(roleProperty, static_cast<int>(role));
}

void setKeys(QWidget &widget, const QString &keys) { widget.setProperty(keysProperty, keys); }

void setOn(QWidget &widget, bool on)
{
    QAccessible::State changed;
    changed.checked = true;
    set(widget, onProperty, on, changed);
}

void setOpen(QWidget &widget, bool open)
{
    QAccessible::State changed;
    changed.expanded = true;
    set(widget, openProperty, open, changed);
}

} // namespace Spoken
