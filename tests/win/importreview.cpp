#include "tests/win/importreview.h"

#include <cstdio>

#include "resources/resource.h"
#include "tests/win/modaldriver.h"

QMTransaction MakeTransaction(int32_t lType, uint16_t uDay, uint32_t uFlags,
                              const char* szDescription)
{
    QMTransaction transaction;
    transaction.lType = lType;
    transaction.dtDate = transaction.dtCleared = QMMakeDate(2004, 3, uDay);
    transaction.lNumber = 1000U + uDay;
    transaction.fAmount = 10.25F * static_cast<float>(uDay);
    transaction.lFlags = uFlags;
    snprintf(transaction.szDescription, sizeof transaction.szDescription, "%s", szDescription);
    return transaction;
}

Flags FlagsOf(const QMTransactionStore& store)
{
    Flags flags;
    store.ForEach([&](const QMTransaction& transaction) { flags.push_back(transaction.lFlags); });
    return flags;
}

Flags TagsOf(const QMTransactionStore& store)
{
    Flags flags = FlagsOf(store);
    for (uint32_t& uFlags : flags) {
        uFlags &= ~QM_TRANS_FLAG_IMPORT;
    }
    return flags;
}

Ticks MarksOf(const QMTransactionStore& store)
{
    Ticks marks;
    for (const uint32_t uFlags : FlagsOf(store)) {
        marks.push_back((uFlags & QM_TRANS_FLAG_IMPORT) != 0);
    }
    return marks;
}

Ticks TicksOf(const QMGridList& list)
{
    Ticks ticks;
    for (int nRow = 0; nRow < list.GetItemCount(); ++nRow) {
        ticks.push_back(list.GetItemState(nRow, LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2));
    }
    return ticks;
}

Flags DataOf(const QMGridList& list)
{
    Flags data;
    for (int nRow = 0; nRow < list.GetItemCount(); ++nRow) {
        data.push_back(static_cast<uint32_t>(list.GetItemData(nRow)));
    }
    return data;
}

UINT CheckOf(const VDialog& dialog, int nId)
{
    return IsDlgButtonChecked(dialog.GetHandle(), nId);
}

void PressNow(VDialog& dialog, int nId)
{
    dialog.Send(WM_COMMAND, MAKEWPARAM(nId, BN_CLICKED),
                reinterpret_cast<LPARAM>(dialog.GetItem(nId)));
}

int MiddleOf(const QMGridList& list, int nRow)
{
    RECT rect = {};
    rect.left = LVIR_BOUNDS;
    list.Send(LVM_GETITEMRECT, static_cast<WPARAM>(nRow), reinterpret_cast<LPARAM>(&rect));
    return (rect.top + rect.bottom) / 2;
}

void Click(QMGridList& list, int x, int y)
{
    list.Post(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    list.Post(WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    PumpAll();
}

void ClickCheckBox(QMGridList& list, int nRow)
{
    const int y = MiddleOf(list, nRow);
    for (int x = 0; x < 50; ++x) {
        LVHITTESTINFO hit = {};
        hit.pt = {x, y};
        list.Send(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
        if (hit.flags == LVHT_ONITEMSTATEICON) {
            Click(list, x + 4, y);
            return;
        }
    }
    ADD_FAILURE() << "row " << nRow << " has no check box";
}

void ResizeClient(VDialog& dialog, int nWidth, int nHeight)
{
    const VRect client = dialog.GetClientRect();
    const VRect window = dialog.GetWindowRect();
    SetWindowPos(dialog.GetHandle(), nullptr, 0, 0, window.GetWidth() - client.GetWidth() + nWidth,
                 window.GetHeight() - client.GetHeight() + nHeight,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void QMImportDialogTest::Fill(const Flags& flags)
{
    for (size_t u = 0; u < flags.size(); ++u) {
        AddTo(m_store, MakeTransaction(u == 2 ? QM_TRANS_CHECK : QM_TRANS_DEPOSIT,
                                       static_cast<uint16_t>(u + 1), flags[u], "Thing"));
    }
}

INT_PTR QMImportDialogTest::Review(const Look& look, int nButton)
{
    ModalDriver driver;
    driver.Next([&](HWND hDialog) {
        auto* pDialog = static_cast<VDialog*>(VWindow::FromHandle(hDialog));
        HWND hList = GetDlgItem(hDialog, IDC_IMPORT_LIST);
        look(*pDialog, *static_cast<QMGridList*>(VWindow::FromHandle(hList)));
        if (nButton != 0) {
            Press(hDialog, nButton);
        }
    });
    QMImportDialog dialog;
    return dialog.DoModal(nullptr, m_store);
}

INT_PTR QMImportDialogTest::ReviewWithKey(WPARAM uKey)
{
    return Review([=](VDialog&, QMGridList& list) { list.Post(WM_KEYDOWN, uKey); }, 0);
}
