// The font of the system, from which a new register takes its own.
#pragma once

struct QMSystemFont
{
    bool bKnown =
        false; // false when the font could not be queried; the other fields then mean nothing
    char szFace[128] = {};
    int nHeight =
        0; // pixels; negative for the height of the characters without the space above them
    int nWeight = 0;
    bool bItalic = false;
    bool bUnderline = false;
    bool bStrikeOut = false;
    int nDotsPerInch = 0; // vertical; 0 when the display could not be queried
};

// Queries the font of the system. A system without windows has none of its own and answers with
// that of most Windows systems.
QMSystemFont QMQuerySystemFont();
