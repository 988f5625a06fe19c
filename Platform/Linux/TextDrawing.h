// How the toolkit draws the glyphs of a text.
#pragma once

namespace platform {

// Makes texts look the same with and without OpenGL, and as other programs draw them. Qt has FreeType thicken
// the stems of CFF fonts (Inter and Cantarell are such), and makes up for that, without OpenGL only, by
// blending their glyphs as light and not as numbers; with OpenGL they stay too heavy. FreeType's own default
// is to thicken nothing. What FREETYPE_PROPERTIES says stays, if it is set.
//
// For the calling thread, and for fonts that it has not opened yet. Nothing happens where Qt does not tell
// which FreeType library is its own.
void drawStemsAsTheyAre();

} // namespace platform
