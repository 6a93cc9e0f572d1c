#include "platform/wayland/SwayTree.h"

#include "platform/wayland/ScreenScale.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QRect rectIn(const QJsonObject &node, QLatin1String key)
{
    const QJsonObject rect = node[key].toObject();
    return {rect[u"x"].toInt(), rect[u"y"].toInt(), rect[u"width"].toInt(), rect[u"height"].toInt()};
}

// In points of the desktop. The title bar is described beside the rest; that of a tab
// stands in a row with those of other windows and does not belong to one.
QRect frameOf(const QJsonObject &window, bool tabs)
{
    const QRect rect = rectIn(window, QLatin1String("rect"));
    const int title = tabs ? 0 : rectIn(window, QLatin1String("deco_rect")).height();
    return rect.adjusted(0, -title, 0, 0);
}

void collect(const QJsonObject &node, bool tabs, std::vector<QRectF> &frames)
{
    const QJsonArray floating = node[u"floating_nodes"].toArray();
    for (auto i = floating.size(); i-- > 0;)
        collect(floating[i].toObject(), false, frames);
    const QString layout = node[u"layout"].toString();
    const QJsonArray children = node[u"nodes"].toArray();
    for (const auto &child : children)
        collect(child.toObject(), layout == u"tabbed" || layout == u"stacked", frames);
    if (node[u"visible"].toBool() && node[u"pid"].toInteger() != QCoreApplication::applicationPid())
        frames.emplace_back(frameOf(node, tabs));
}

QRect outputIn(const QJsonObject &root, const QString &name)
{
    const QJsonArray outputs = root[u"nodes"].toArray();
    for (const auto &output : outputs)
        if (output[u"name"].toString() == name)
            return rectIn(output.toObject(), QLatin1String("rect"));
    return {};
}

} // namespace

namespace SwayTree {

std::vector<QRect> framesOn(const ScreenShot &shot, const QByteArray &json)
{
    const QJsonObject root = QJsonDocument::fromJson(json).object();
    const QRect output = outputIn(root, shot.screen->name());
    std::vector<QRectF> frames;
    if (!output.isEmpty())
        collect(root, false, frames);
    for (QRectF &frame : frames)
        frame.translate(-output.topLeft());
    return ScreenScale::pixelsOn(shot, frames);
}

} // namespace SwayTree
