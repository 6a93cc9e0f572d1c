#pragma once

#include <QImage>
#include <QStringList>

#include <functional>
#include <vector>

// Holds the scenes of the demonstration: what a user does with a frozen screen, one
// thing after another, each on a screen of its own.
namespace DemoScript {

// Receives each picture that a scene takes.
using Camera = std::function<void(const QImage &)>;

struct Scene {
    QString name;
    bool texts; // whether the scene is worth seeing in every language
    // Plays the scene on a picture of the screen, with scale pixels per point.
    // Returns false when something that the scene shows did not come about.
    std::function<bool(const QImage &screen, double scale, const Camera &camera)> play;
};

// Returns the scenes in their order, the shapes last.
[[nodiscard]] const std::vector<Scene> &scenes();
[[nodiscard]] QStringList names();

} // namespace DemoScript
