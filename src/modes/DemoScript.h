#pragma once

#include <QImage>
#include <QStringList>

#include <functional>
#include <vector>

// The scenes of the demonstration: what a user does with a frozen screen, one
// thing after another, each on a screen of its own.
namespace DemoScript {

// Takes the picture that the scene is about.
using Camera = std::function<void(const QImage &)>;

struct Scene {
    QString name;
    bool texts; // worth seeing in every language
    // Plays on that picture at so many pixels a point; false when something
    // that it shows did not come about.
    std::function<bool(const QImage &screen, double scale, const Camera &camera)> play;
};

// In their order, the shapes last.
[[nodiscard]] const std::vector<Scene> &scenes();
[[nodiscard]] QStringList names();

} // namespace DemoScript
