#include "toolbar/PaletteAccess.h"

#include "l10n/L10n.h"
#include "toolbar/ColorName.h"
#include "toolbar/ColorPalette.h"

#include <QAccessibleWidget>
#include <QPointer>

namespace {

// One colour, or the eyedropper.
class Item final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    Item(ColorPalette &palette, PaletteGeometry::Hit what) : m_palette(&palette), m_what(what) {}

    bool isValid() const override { return !m_palette.isNull(); }
    QObject *object() const override { return nullptr; }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_palette.get());
    }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }

    QAccessible::Role role() const override
    {
        return color() ? QAccessible::RadioButton : QAccessible::Button;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invisible = !m_palette->isVisible();
        state.checkable = color().has_value();
        state.checked = color() && m_palette->isSelected(*color());
        return state;
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Accelerator && !color())
            return eyedropperKey();
        if (kind != QAccessible::Name)
            return {};
        if (const auto shown = color())
            return std::holds_alternative<PaletteGeometry::FixedColor>(m_what) ? colorName(*shown)
                                                                               : spokenColor(*shown);
        return L10n::t(u"Cuentagotas");
    }
    void setText(QAccessible::Text, const QString &) override {}

    QRect rect() const override
    {
        const QRect place = PaletteGeometry::placeOf(m_what).toRect();
        return {m_palette->mapToGlobal(place.topLeft()), place.size()};
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString &action) override
    {
        if (action == pressAction())
            m_palette->choose(m_what);
    }
    QStringList keyBindingsForAction(const QString &) const override
    {
        return color() ? QStringList() : QStringList{eyedropperKey()};
    }

private:
    [[nodiscard]] std::optional<QColor> color() const { return m_palette->colorOf(m_what); }
    [[nodiscard]] static QString eyedropperKey() { return QStringLiteral("I"); }

    const QPointer<ColorPalette> m_palette;
    const PaletteGeometry::Hit m_what;
};

class Palette final : public QAccessibleWidget {
public:
    explicit Palette(ColorPalette &palette) : QAccessibleWidget(&palette, QAccessible::ColorChooser)
    {
        for (const PaletteGeometry::Hit &what : palette.items())
            m_items.append(QAccessible::registerAccessibleInterface(new Item(palette, what)));
    }

    int childCount() const override { return static_cast<int>(m_items.size()); }
    QAccessibleInterface *child(int index) const override
    {
        return QAccessible::accessibleInterface(m_items.value(index));
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return static_cast<int>(
            m_items.indexOf(QAccessible::uniqueId(const_cast<QAccessibleInterface *>(child))));
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        for (int i = 0; i < childCount(); ++i)
            if (child(i)->rect().contains(x, y))
                return child(i);
        return nullptr;
    }

protected:
    ~Palette() override
    {
        for (const QAccessible::Id item : m_items)
            QAccessible::deleteAccessibleInterface(item);
    }

private:
    QList<QAccessible::Id> m_items;
};

QAccessibleInterface *make(const QString &, QObject *object)
{
    auto *palette = qobject_cast<ColorPalette *>(object);
    return palette ? new Palette(*palette) : nullptr;
}

} // namespace

void PaletteAccess::install() { QAccessible::installFactory(make); }
