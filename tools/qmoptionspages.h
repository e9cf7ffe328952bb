// The pages of the sheet "Options". They work on copies. The caller of the sheet takes these when
// the sheet has ended by OK.
#pragma once

#include "toolkit/vgdiobjects.h"
#include "toolkit/vpropertypage.h"
#include "tools/qmoptionflags.h"

// A page of check boxes for the bits of one flag word.
class QMFlagOptionsPage : public VPropertyPage
{
public:
    ~QMFlagOptionsPage() override { Detach(); }

    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    bool OnInitDialog() override;
    bool OnOK() override;

    // The flag word. Bits that have no check box are as they were.
    uint32_t GetFlags() const { return m_uFlags; }

protected:
    QMFlagOptionsPage(std::span<const QMOptionBox> boxes, uint32_t uFlags, uint32_t uDefaults)
        : m_boxes(boxes), m_uFlags(uFlags), m_uDefaults(uDefaults)
    {}

private:
    void ShowFlags();

    std::span<const QMOptionBox> m_boxes;
    uint32_t m_uFlags;
    uint32_t m_uDefaults;
};

class QMGeneralOptionsPage : public QMFlagOptionsPage
{
public:
    explicit QMGeneralOptionsPage(uint32_t uFlags)
        : QMFlagOptionsPage(QMGeneralOptionBoxes(), uFlags, QM_DEFAULT_GENERAL_OPTIONS)
    {}
    ~QMGeneralOptionsPage() override { Detach(); }
};

class QMPrintingOptionsPage : public QMFlagOptionsPage
{
public:
    explicit QMPrintingOptionsPage(uint32_t uFlags)
        : QMFlagOptionsPage(QMPrintingOptionBoxes(), uFlags, QM_DEFAULT_PRINTING_OPTIONS)
    {}
    ~QMPrintingOptionsPage() override { Detach(); }
};

class QMDisplayOptionsPage : public VPropertyPage
{
public:
    // The colours are those of a balance's text.
    QMDisplayOptionsPage(COLORREF crPositive, COLORREF crNegative);
    ~QMDisplayOptionsPage() override { Detach(); }

    // Gives the page the font of the active register. Without a font its button is disabled.
    void SetFont(const LOGFONTA& font, COLORREF crText);

    const LOGFONTA& GetFont() const { return m_font; }
    COLORREF GetFontColor() const { return m_crFont; }
    COLORREF GetPositive() const { return m_positive.crColor; }
    COLORREF GetNegative() const { return m_negative.crColor; }

    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    bool OnInitDialog() override;
    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;

private:
    // A field that shows a colour.
    struct Swatch
    {
        int nControl;
        COLORREF crColor;
        VBrush brush;
    };

    void SetSwatch(Swatch& swatch, COLORREF crColor);
    void SelectColor(Swatch& swatch);
    void SelectFont();
    void ShowFontName();
    void SetDefaults();

    LOGFONTA m_font = {};
    COLORREF m_crFont = 0;
    bool m_bHasFont = false; // true when a register gave it
    Swatch m_positive;
    Swatch m_negative;
};
