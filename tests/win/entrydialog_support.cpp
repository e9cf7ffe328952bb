#include "tests/win/entrydialog_support.h"

#include "account/qmdate_win.h"
#include "entry/qmtransactiondialog.h"
#include "resources/resource.h"
#include "tests/win/support.h"

INT_PTR RunEntryDialog(EntryArgs& args)
{
    QMTransactionDialog dialog;
    return dialog.DoModal(nullptr, args.block);
}

int TypeOn(HWND hDialog)
{
    int nFound = 0;
    int nCount = 0;
    for (int nId = IDC_TX_CHECK; nId <= IDC_TX_INTEREST; ++nId) {
        if (IsOn(hDialog, nId)) {
            nFound = nId;
            ++nCount;
        }
    }
    return nCount == 1 ? nFound : 0;
}

std::string BoxesOn(HWND hDialog)
{
    return std::string(IsOn(hDialog, IDC_TX_TAX) ? "T" : "") +
           (IsOn(hDialog, IDC_TX_EXPENSE) ? "E" : "") + (IsOn(hDialog, IDC_TX_VOIDED) ? "V" : "") +
           (IsOn(hDialog, IDC_TX_CLEARED) ? "C" : "");
}

std::string DateIn(HWND hDialog, int nId)
{
    SYSTEMTIME time = {};
    SendDlgItemMessageA(hDialog, nId, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time));
    return DateText(QMFromSystemTime(time));
}

void PickDate(HWND hDialog, int nId, const std::string& sDate)
{
    HWND hPicker = GetDlgItem(hDialog, nId);
    NMDATETIMECHANGE change = {};
    change.nmhdr.hwndFrom = hPicker;
    change.nmhdr.idFrom = static_cast<UINT_PTR>(nId);
    change.nmhdr.code = DTN_DATETIMECHANGE;
    change.st = QMToSystemTime(MakeDate(sDate));
    SendMessageA(hPicker, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&change.st));
    SendMessageA(hDialog, WM_NOTIFY, change.nmhdr.idFrom, reinterpret_cast<LPARAM>(&change));
}

std::string TextsIn(HWND hDialog)
{
    std::string sAll;
    for (const int nId :
         {IDC_TX_NUMBER, IDC_TX_DESCRIPTION, IDC_TX_AMOUNT, IDC_TX_MEMO, IDC_TX_CATEGORY}) {
        sAll += (sAll.empty() && nId == IDC_TX_NUMBER ? "" : "|") + ItemText(hDialog, nId);
    }
    return sAll;
}

std::string ArrowsOpen(HWND hDialog)
{
    std::string sAll;
    const auto Note = [&](int nId, const char* szSign) {
        if (IsEnabled(hDialog, nId)) {
            sAll += (sAll.empty() ? "" : " ") + std::string(szSign);
        }
    };
    Note(IDC_TX_FIRST, "<<");
    Note(IDC_TX_PREVIOUS, "<");
    Note(IDC_TX_NEXT, ">");
    Note(IDC_TX_LAST, ">>");
    return sAll;
}
