// The dialog of reports, with an account that the test makes, driven by its controls.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/vtext.h"
#include "reports/qmreportdialog.h"
#include "resources/resource.h"
#include "tests/support/support.h"
#include "tests/win/dialog_support.h"
#include "tests/win/support.h"

class ReportDialogFixture : public testing::Test
{
protected:
    void Add(int32_t lType, const std::string& sDate, float fAmount, const char* szCategory = "",
             uint32_t uFlags = 0)
    {
        QMTransaction t = MakeTransaction(lType, sDate, fAmount, uFlags, "Payee");
        VCopyText(t.szCategory, szCategory);
        VCopyText(t.szMemo, szCategory);
        AddTo(m_dialog.GetAccount().store, t);
    }

    // Runs the dialog, and in it the steps; what they open is answered by the driver's further
    // steps.
    void Run(const std::function<void(HWND hDialog)>& steps)
    {
        m_driver.Next([&](HWND hDialog) {
            steps(hDialog);
            Press(hDialog, IDC_REPORT_CLOSE);
        });
        EXPECT_EQ(m_dialog.DoModal(nullptr, "book.qmk"), IDC_REPORT_CLOSE);
    }

    static void Choose(HWND hDialog, int nId, int nRow)
    {
        SendDlgItemMessageA(hDialog, nId, CB_SETCURSEL, static_cast<WPARAM>(nRow), 0);
        SendMessageA(hDialog, WM_COMMAND, MAKEWPARAM(nId, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(GetDlgItem(hDialog, nId)));
    }

    static std::vector<std::string> RowsOf(HWND hDialog, int nId)
    {
        std::vector<std::string> rows;
        const LRESULT lCount = SendDlgItemMessageA(hDialog, nId, CB_GETCOUNT, 0, 0);
        for (LRESULT l = 0; l < lCount; ++l) {
            char szRow[300] = "";
            SendDlgItemMessageA(hDialog, nId, CB_GETLBTEXT, static_cast<WPARAM>(l),
                                reinterpret_cast<LPARAM>(szRow));
            rows.emplace_back(szRow);
        }
        return rows;
    }

    static void SetDate(HWND hDialog, int nId, WORD wYear, WORD wMonth, WORD wDay)
    {
        const SYSTEMTIME date = {wYear, wMonth, 0, wDay, 0, 0, 0, 0};
        SendDlgItemMessageA(hDialog, nId, DTM_SETSYSTEMTIME, GDT_VALID,
                            reinterpret_cast<LPARAM>(&date));
    }

    bool IsReportDialog(HWND hDialog) const { return hDialog == m_dialog.GetHandle(); }

    // Of the report on the screen; 0 without one.
    int Height() { return m_dialog.GetView().GetPictureRect().GetHeight(); }

    ModalDriver m_driver;
    QMReportDialog m_dialog;
};
