// The pages of the sheet "Options". Each works on copies, which who runs the sheet takes when it
// ended by OK.
#pragma once

#include "toolkit/vgdiobjects.h"
#include "toolkit/vpropertypage.h"
#include "tools/qmoptionflags.h"

// A page of check boxes over one flag word.
class QMFlagOptionsPage : public VPropertyPage
{
public:
    // The window ends here, while the operations below still are this object's.
    ~QMFlagOptionsPage() override { Detach(); }

    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    bool OnInitDialog() override;
    bool OnOK() override;

    // Bits without a box stay as they are.
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
    // The colours of a balance's text.
    QMDisplayOptionsPage(COLORREF crPositive, COLORREF crNegative);
    ~QMDisplayOptionsPage() override { Detach(); }

    // Gives the page the font of the register on top. Without one the font cannot be chosen.
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
    bool m_bHasFont = false; // a register supplied it
    Swatch m_positive;
    Swatch m_negative;
};
