#include "toolkit/vdialog.h"

#include "toolkit/vapplication.h"
#include "toolkit/vmodalowner.h"

namespace {

// Ends a modal dialog with -1 when one of its commands or notifications ran out of memory: the
// caller's command fails as it does for a dialog that cannot be made.
void EndForLackOfMemory(VWindow& window, UINT uMessage, WPARAM /*wParam*/)
{
    auto& dialog = static_cast<VDialog&>(window);
    if (dialog.IsModal() && (uMessage == WM_COMMAND || uMessage == WM_NOTIFY)) {
        dialog.EndWith(-1);
    }
}

} // namespace

VDialog::VDialog(int32_t lKind) : VWindow(lKind)
{
    SetMemoryFailure(&EndForLackOfMemory);
}

INT_PTR VDialog::DoModal(HWND hParent, UINT uTemplate, HINSTANCE hInstance)
{
    SetModal(true);
    HWND hFocus = ::GetFocus();
    HINSTANCE hModule = hInstance == nullptr ? GetApplication().GetResourceModule() : hInstance;
    const INT_PTR nResult =
        DialogBoxParamA(hModule, MAKEINTRESOURCEA(uTemplate), VModalOwner(hParent),
                        reinterpret_cast<DLGPROC>(&WindowProc), reinterpret_cast<LPARAM>(this));
    if (IsWindow(hFocus)) {
        ::SetFocus(hFocus);
    }
    if (IsWindow(hParent)) {
        UpdateWindow(hParent);
    }
    return nResult;
}

bool VDialog::CreateModeless(HWND hParent, UINT uTemplate)
{
    SetModal(false);
    HWND hDialog = CreateDialogParamA(
        GetApplication().GetResourceModule(), MAKEINTRESOURCEA(uTemplate), hParent,
        reinterpret_cast<DLGPROC>(&WindowProc), reinterpret_cast<LPARAM>(this));
    // Wine 8 returns the handle even when the dialog was refused, and so destroyed, during its
    // WM_INITDIALOG.
    return hDialog != nullptr && IsWindow(hDialog);
}

void VDialog::EndWith(INT_PTR nResult)
{
    if (!IsValid() || GetKind() == V_KIND_PROPERTY_PAGE) {
        return;
    }
    if (IsModal()) {
        EndDialog(GetHandle(), nResult);
    } else {
        // EndDialog would only hide a modeless dialog.
        DestroyWindow(GetHandle());
    }
}

bool VDialog::OnClose(bool bForced)
{
    if (!IsValid()) {
        return false;
    }
    if (!IsModal()) {
        return VWindow::OnClose(bForced);
    }
    if (GetItem(IDCANCEL) != nullptr) {
        // OnCancel decides whether the dialog may close.
        Post(WM_COMMAND, IDCANCEL);
    } else {
        EndWith(CancelResult());
    }
    return true;
}

LRESULT VDialog::OnCommand(UINT /*uNotifyCode*/, UINT uId, HWND /*hControl*/)
{
    if (uId == IDOK) {
        if (OnOK()) {
            EndWith(IDOK);
        }
        return 0;
    }
    if (uId == IDCANCEL) {
        if (OnCancel()) {
            EndWith(IDCANCEL);
        }
        return 0;
    }
    return V_NOT_HANDLED;
}

VString VDialog::GetItemText(int nId) const
{
    HWND hItem = GetItem(nId);
    return hItem == nullptr ? VString() : WindowText(hItem);
}

void VDialog::LimitItemText(int nId, int nCharacters)
{
    const bool bCombo = KindOfWindow(GetItem(nId)) == V_KIND_COMBO_BOX;
    SendItem(nId, bCombo ? CB_LIMITTEXT : EM_LIMITTEXT, static_cast<WPARAM>(nCharacters));
}

void VDialog::ShowIcon(UINT uId)
{
    HANDLE hIcon =
        LoadImageA(GetApplication().GetResourceModule(), MAKEINTRESOURCEA(uId), IMAGE_ICON,
                   GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON), LR_SHARED);
    Send(WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(hIcon));
}

void VDialog::FocusItem(int nId)
{
    Send(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetItem(nId)), TRUE);
}
