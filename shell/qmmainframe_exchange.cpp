// How the frame imports and exports files.

#include <cstdio>

#include "exchange/qmexchange.h"
#include "exchange/qmimportdialog.h"
#include "resources/resource.h"
#include "shell/qmmainframe.h"
#include "shell/qmprogressdialog.h"
#include "toolkit/vmessages.h"

namespace {

// Shows the result: what was done, with how many transactions, and the file on a line of its own.
void ShowResult(HWND hWnd, const char* szSentence, const char* szPath, const char* szCaption)
{
    VString sText(szSentence);
    sText.Append("'");
    sText.Append(szPath);
    sText.Append("'.");
    MessageBox(hWnd, sText.GetText(), szCaption, MB_OK);
}

VString CountSentence(const char* szFormat, int32_t lCount)
{
    char szText[128];
    snprintf(szText, sizeof szText, szFormat, lCount);
    return VString(szText);
}

// Writes a copy of the document's transactions. Returns their number; -1 on failure.
int32_t WriteFile(HWND hWnd, const char* szPath, const QMDocument& document)
{
    QMProgressDialog progress(hWnd, "Writing transactions...");
    QMProgressPart copying(&progress, 0, 2);
    QMProgressPart writing(&progress, 1, 2);
    QMTransactionStore store;
    const int32_t lCount = document.GetTransactions(store, &copying);
    return lCount >= 0 && QMExportFile(szPath, store, &writing) ? lCount : -1;
}

} // namespace

bool QMMainFrame::ImportFile(const char* szPath, QMRegisterWindow& document)
{
    constexpr char szCaption[] = "Import";
    const VCommandScope running(*this, &document);
    QMTransactionStore store;
    {
        QMProgressDialog progress(GetHandle(), "Reading transactions...");
        if (!QMImportFile(szPath, store, &progress)) {
            return progress.IsCancelled();
        }
    }
    QMImportDialog dialog;
    if (dialog.DoModal(GetHandle(), store) != IDC_IMPORT_IMPORT) {
        return true;
    }
    const VWaitCursor wait;
    int32_t lCount = 0;
    {
        QMProgressDialog progress(GetHandle(), "Importing transactions...");
        lCount = document.MergeMarked(store, &progress);
        if (progress.IsCancelled()) {
            return true;
        }
    }
    if (lCount < 0) {
        ShowResult(GetHandle(), "Failed to import transactions from file:\n", szPath, szCaption);
        return true;
    }
    const VString sSentence =
        CountSentence("Successfully imported %d transactions from file:\n", lCount);
    ShowResult(GetHandle(), sSentence.GetText(), szPath, szCaption);
    return true;
}

bool QMMainFrame::ExportFile(const char* szPath, QMRegisterWindow& document)
{
    constexpr char szCaption[] = "Export";
    if (VString(szPath).FindLast('.') < 0) {
        return false;
    }
    const VCommandScope running(*this, &document);
    const int32_t lCount = WriteFile(GetHandle(), szPath, document.GetDocument());
    if (lCount < 0) {
        ShowResult(GetHandle(), "Failed to export transactions to file:\n", szPath, szCaption);
        return false;
    }
    const VString sSentence =
        CountSentence("Successfully exported %d transactions to file:\n", lCount);
    ShowResult(GetHandle(), sSentence.GetText(), szPath, szCaption);
    return true;
}

void QMMainFrame::ImportInto(QMRegisterWindow& document, const VString& sPath)
{
    if (!ImportFile(sPath.GetText(), document)) {
        TellOf("Failed to import transactions from file\n'", sPath, "'.");
    }
}
