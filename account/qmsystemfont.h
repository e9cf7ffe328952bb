// The font that the system gives to windows, from which a new register takes its own.
#pragma once

struct QMSystemFont
{
    bool bKnown = false; // nothing else counts when the font could not be queried
    char szFace[128] = {};
    int nHeight = 0; // pixels, negative for the height of the characters
    int nWeight = 0;
    bool bItalic = false;
    bool bUnderline = false;
    bool bStrikeOut = false;
    int nDotsPerInch = 0; // vertical; 0 when the display could not be queried
};

// Never known on a system without windows.
QMSystemFont QMQuerySystemFont();
