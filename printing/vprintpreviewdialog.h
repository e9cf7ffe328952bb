// VPrintPreviewDialog: shows the pages of a print context on a picture of the paper, one at a time.
// It draws nothing of them itself: it has them rendered, and scales what it gets.
#pragma once

#include "printing/vpreviewgeometry.h"
#include "printing/vprintcontext.h"
#include "printing/vscrollview.h"
#include "toolkit/vbutton.h"
#include "toolkit/vbuttonpictures.h"
#include "toolkit/vcombobox.h"
#include "toolkit/vdialog.h"

// What the preview has done for it; the two last may be null. Each gets the user's value.
struct VPrintPreviewOperations
{
    bool (*pfnRender)(void* pUser, VPrintContext& context) = nullptr;
    bool (*pfnPrint)(void* pUser) = nullptr;
    // True when there is something new to render.
    bool (*pfnSetup)(void* pUser) = nullptr;
};

// The field with the number of the page. It keeps Enter for itself and tells its dialog of it by
// its own command.
class VPageBox : public VControl
{
public:
    VPageBox() : VControl(V_KIND_EDIT) {}
    ~VPageBox() override { Detach(); }

    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;
    // Whether Enter was pressed since the last time this was asked.
    bool TakeEnter();

private:
    bool m_bEnter = false;
};

class VPrintPreviewDialog : public VDialog
{
public:
    VPrintPreviewDialog();
    ~VPrintPreviewDialog() override { Detach(); }

    // Shows the pages in a window over rcOwner (on the screen) until the user closes it. False at
    // once when nothing can be rendered or the window cannot be made.
    bool Run(VWindow& owner, const VRect& rcOwner, const VPrintPreviewOperations& operations,
             void* pUser);

    // Renders anew and holds the page among those that there are now; false when that failed.
    bool Refresh();
    // Makes the picture of the page on show, for the next paint or, with bRedraw, at once. On false
    // the earlier picture stays.
    bool ShowPage(bool bRedraw);
    // Makes the page box and the buttons agree with the page on show. The focus goes to Close.
    void UpdateNavigation();

    LRESULT DefaultProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnCommand(UINT uNotifyCode, UINT uId, HWND hControl) override;
    bool OnPaint(VDrawingSurface& surface) override;
    LRESULT OnSize(UINT uType, int nWidth, int nHeight) override;
    bool OnInitDialog() override;
    // Enter in a field must not close the window.
    bool OnOK() override { return false; }
    void EndWith(INT_PTR nResult) override;

private:
    // Sends the keys that scroll from a control, which has no use for them, to the view.
    class ScrollKeys : public VMessageFilter
    {
    public:
        explicit ScrollKeys(VScrollView& view) : m_view(view) {}
        bool Filter(VWindow& window, UINT uMessage, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                    bool& bHandled) override;

    private:
        VScrollView& m_view;
    };

    static constexpr int nButtons = 7;

    bool AttachControls();
    bool MakeView();
    VRect PlaceOfView(int nWidth, int nHeight) const;
    bool Compose(VBitmap& picture);
    bool DrawSheet(VDrawingSurface& surface, VBitmap& sheet);
    void TurnTo(int64_t lPage);
    void OnSetup();
    void ComeBack();
    void OnScale();
    void OnPageBox(UINT uNotifyCode);
    void GoToTypedPage();

    VRect m_rcOwner;
    VPrintPreviewOperations m_operations;
    void* m_pUser = nullptr;
    VPrintContext m_context;
    int32_t m_nPageCount = 0;
    VPageBox m_editPage;
    bool m_bPageTextShown = false; // the box was emptied for typing
    int32_t m_nCurrentPage = 0;
    float m_fScale = V_PREVIEW_SCALES[V_PREVIEW_FIRST_SCALE].fScale;
    VScrollView m_view;
    VComboBox m_cboScale;
    VButton m_aButtons[nButtons];
    VButtonPictures m_arrows;
    HICON m_hIcon = nullptr; // shared, the resources' own
    bool m_bOpened = false;  // all stood at the opening
    ScrollKeys m_keysOfBox{m_view};
    ScrollKeys m_aKeysOfButtons[nButtons];
};
