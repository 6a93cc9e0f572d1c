#pragma once

#include "shapes/Point.h"

#include <string>

namespace ShapeRecognizer {

// Holds a recognised shape.
struct Result {
    std::string name; // "linea", "flecha", "visto", "arco", "circulo", "elipse", "estrella", "triangulo",
                      // "rectangulo", "rombo", "cuadrilatero" or "corazon"
    Points points;    // the ideal outline, all finite; a closed shape ends where it began
};

} // namespace ShapeRecognizer
