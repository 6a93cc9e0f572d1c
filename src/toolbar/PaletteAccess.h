#pragma once

// Tells the programs that read a screen aloud what the palette draws: the colours and
// the eyedropper, which are no widgets.
namespace PaletteAccess {

// Must be called before a palette is made. More than once is once.
void install();

} // namespace PaletteAccess
