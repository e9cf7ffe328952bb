// The commands of the File menu.

#include "base/vfilesystem.h"
#include "resources/resource.h"
#include "shell/qmcommand.h"
#include "shell/qmmainframe.h"
#include "shell/qmsheetcommands.h"
#include "toolkit/vmessages.h"

namespace {

constexpr char szAccountExtension[] = "qmk";
constexpr char szExchangeExtension[] = "qif";
constexpr char szSaveFailed[] = "Failed to save file '";
constexpr char szEnd[] = "'.";
constexpr char szNoPrinter[] =
    "'.\n\nPlease make sure that there is a printer installed and "
    "connected to this computer.";

// ---- New and open.

bool NewDocument(QMCommandContext& context)
{
    const VString sName = context.frame.TakeUntitledName();
    const bool bDone = context.frame.CreateDocument(sName.GetText(), true);
    if (!bDone) {
        context.frame.Tell("Failed to open new Quillmark file.");
    }
    return bDone;
}

bool OpenDocuments(QMCommandContext& context)
{
    QMMainFrame& frame = context.frame;
    VFileDialog& dialog = frame.GetFileDialogs().open;
    if (!dialog.Run(frame.GetHandle(),
                    {.uFlags = OFN_ALLOWMULTISELECT | OFN_HIDEREADONLY,
                     .szDirectory = frame.GetSettings().GetCurrentDirectory().GetText(),
                     .szDefaultExtension = szAccountExtension})) {
        return true;
    }
    const VWaitCursor wait;
    frame.SetCurrentDirectory(dialog.GetDirectory().GetText());
    VString sPath;
    while (dialog.NextPath(sPath)) {
        if (!frame.ActivateIfOpen(sPath.GetText(), true) &&
            !frame.CreateDocument(sPath.GetText(), false)) {
            frame.TellOf("Failed to open file '", sPath, szEnd);
            return false;
        }
    }
    return true;
}

// ---- Save.

bool SaveDocument(QMCommandContext& context)
{
    QMRegisterWindow& document = *context.pDocument;
    const VString sPath = document.GetFullName();
    if (!FileExists(sPath.GetText())) {
        return context.frame.SaveUnder(document);
    }
    const QMSaveEnd end = context.frame.Save(document);
    if (end == QMSaveEnd::Failed) {
        context.frame.TellOf(szSaveFailed, sPath, szEnd);
    }
    return end == QMSaveEnd::Saved;
}

bool SaveDocumentAs(QMCommandContext& context)
{
    return context.frame.SaveUnder(*context.pDocument);
}

bool SaveAllDocuments(QMCommandContext& context)
{
    // A copy: while a box tells of a failure another start of the program may open a file.
    const std::vector<QMRegisterWindow*> documents = context.frame.GetDocuments();
    for (QMRegisterWindow* pDocument : documents) {
        const QMSaveEnd end =
            pDocument->IsReadOnly() ? QMSaveEnd::Saved : context.frame.Save(*pDocument);
        if (end == QMSaveEnd::Failed) {
            context.frame.TellOf(szSaveFailed, pDocument->GetFileName(), szEnd);
        } else if (end == QMSaveEnd::Cancelled) {
            return false;
        }
    }
    return true;
}

// ---- Import and export.

// Returns false when the user cancels the dialog.
bool RunExchangeDialog(QMMainFrame& frame, VFileDialog& dialog, bool bOpen)
{
    if (!dialog.Run(frame.GetHandle(),
                    {.bOpen = bOpen,
                     .uFlags = OFN_HIDEREADONLY,
                     .szDirectory = frame.GetSettings().GetCurrentDirectory().GetText(),
                     .szDefaultExtension = szExchangeExtension})) {
        return false;
    }
    frame.SetCurrentDirectory(dialog.GetDirectory().GetText());
    return true;
}

bool ImportTransactions(QMCommandContext& context)
{
    VFileDialog& dialog = context.frame.GetFileDialogs().importFrom;
    if (RunExchangeDialog(context.frame, dialog, true)) {
        const VWaitCursor wait;
        context.frame.ImportInto(*context.pDocument, dialog.GetPath());
    }
    return true;
}

bool ExportTransactions(QMCommandContext& context)
{
    VFileDialog& dialog = context.frame.GetFileDialogs().exportTo;
    if (!RunExchangeDialog(context.frame, dialog, false)) {
        return true;
    }
    const VWaitCursor wait;
    const VString& sPath = dialog.GetPath();
    if (!context.frame.ExportFile(sPath.GetText(), *context.pDocument)) {
        context.frame.TellOf("Failed to export transactions to file\n'", sPath, szEnd);
    }
    return true;
}

// ---- Print.

bool Print(QMCommandContext& context)
{
    // The user may close the document while its job runs.
    const VString sName = context.pDocument->GetFileName();
    const bool bDone = context.frame.GetPrintDocument()->Print();
    if (!bDone) {
        context.frame.TellOf("Failed to print file '", sName, szNoPrinter);
    }
    return bDone;
}

bool Preview(QMCommandContext& context)
{
    const VString sName = context.pDocument->GetFileName();
    const bool bDone = context.frame.GetPrintDocument()->Preview();
    if (bDone) {
        context.frame.SavePageSetup();
    } else {
        context.frame.TellOf("Failed to create preview for '", sName, szNoPrinter);
    }
    return bDone;
}

bool SetUpPage(QMCommandContext& context)
{
    if (context.frame.GetPrintDocument()->PageSetup()) {
        context.frame.SavePageSetup();
    }
    return true;
}

bool SetPassword(QMCommandContext& context)
{
    context.pDocument->SetPassword();
    return true;
}

constexpr QMCommand aCommands[] = {
    {.uFirst = IDM_FILE_NEW, .pRun = NewDocument},
    {.uFirst = IDM_FILE_OPEN, .pRun = OpenDocuments},
    // The toolkit's frame carries these two out.
    {.uFirst = IDM_FILE_CLOSE, .offered = QMOffered::WithDocument},
    {.uFirst = IDM_FILE_CLOSEALL, .offered = QMOffered::WithDocument},
    {
        .uFirst = IDM_FILE_SAVE,
        .offered = QMOffered::WithDocument,
        .needs = QMNeeds::WritableDocument,
        .szWhat = "save file",
        .pRun = SaveDocument,
    },
    {
        .uFirst = IDM_FILE_SAVEAS,
        .offered = QMOffered::WithDocument,
        .needs = QMNeeds::WritableDocument,
        .szWhat = "save file",
        .pRun = SaveDocumentAs,
    },
    {.uFirst = IDM_FILE_SAVEALL, .offered = QMOffered::WithDocument, .pRun = SaveAllDocuments},
    {
        .uFirst = IDM_FILE_PRINT,
        .offered = QMOffered::WithDocument,
        .needs = QMNeeds::Document,
        .szWhat = "print file",
        .pRun = Print,
    },
    {
        .uFirst = IDM_FILE_PREVIEW,
        .offered = QMOffered::WithDocument,
        .needs = QMNeeds::Document,
        .szWhat = "preview file",
        .pRun = Preview,
    },
    {.uFirst = IDM_FILE_PAGESETUP, .offered = QMOffered::WithDocument, .pRun = SetUpPage},
    {
        // Kept: an account in read-only mode takes imports all the same.
        .uFirst = IDM_FILE_IMPORT,
        .offered = QMOffered::WithDocument,
        .needs = QMNeeds::Document,
        .szWhat = "import file",
        .pRun = ImportTransactions,
    },
    {
        .uFirst = IDM_FILE_EXPORT,
        .offered = QMOffered::WithDocument,
        .needs = QMNeeds::Document,
        .szWhat = "export file",
        .pRun = ExportTransactions,
    },
    {
        // Kept: read-only mode does not stop it, so that the mark itself can be taken off.
        .uFirst = IDM_FILE_ACCOUNTINFO,
        .offered = QMOffered::WithDocument,
        .needs = QMNeeds::Document,
        .szWhat = "set account information",
        .pRun = QMSetAccountInformation,
    },
    {
        // Kept: read-only mode does not stop it. The new password is then never saved.
        .uFirst = IDM_FILE_PASSWORD,
        .offered = QMOffered::WithDocument,
        .needs = QMNeeds::Document,
        .szWhat = "set password",
        .pRun = SetPassword,
    },
    {
        .uFirst = IDM_FILE_RECENT_FIRST,
        .uLast = IDM_FILE_RECENT_LAST,
        .pRun = [](QMCommandContext& context) { return context.frame.OpenRecent(context.uId); },
    },
    {
        .uFirst = IDM_FILE_EXIT,
        .pRun = [](QMCommandContext& context) { return context.frame.OnClose(true); },
        .bCloses = true,
    },
};

} // namespace

constinit const QMCommandTable fileCommands(aCommands);
