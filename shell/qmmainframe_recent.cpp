// The submenu Recent Files of the frame.

#include <cstdio>

#include "base/vfilesystem.h"
#include "resources/resource.h"
#include "shell/qmmainframe.h"

namespace {

// The menu item for a path. An ampersand is doubled, so that it does not underline the next letter.
VString MenuLabel(int nNumber, const VString& sPath)
{
    VString sFolder;
    VString sFileName;
    VSplitPath(sPath.GetText(), sFolder, sFileName);
    char szNumber[16];
    snprintf(szNumber, sizeof szNumber, "&%d ", nNumber);
    VString sLabel(szNumber);
    for (uint32_t u = 0; u < sFileName.GetLength(); ++u) {
        if (sFileName.GetAt(u) == '&') {
            sLabel.AppendCharacter('&');
        }
        sLabel.AppendCharacter(sFileName.GetAt(u));
    }
    return sLabel;
}

} // namespace

void QMMainFrame::AddRecent(const char* szPath)
{
    QMRegistrySlots slots;
    if (slots.IsOpen()) {
        QMRecentList(slots).Add(szPath);
    }
}

void QMMainFrame::RemoveRecent(const char* szPath)
{
    QMRegistrySlots slots;
    if (slots.IsOpen()) {
        QMRecentList(slots).Remove(szPath);
    }
}

void QMMainFrame::RebuildRecentMenu()
{
    QMRegistrySlots slots;
    if (!slots.IsOpen()) {
        return;
    }
    for (UINT uId = IDM_FILE_RECENT_FIRST; uId <= IDM_FILE_RECENT_EMPTY; ++uId) {
        m_recentMenu.Delete(uId);
    }
    const int nCount = QMRecentList(slots).GetCount();
    for (int nSlot = 0; nSlot < nCount; ++nSlot) {
        VString sPath;
        slots.Read(nSlot, sPath);
        m_recentMenu.Append(IDM_FILE_RECENT_FIRST + static_cast<UINT>(nSlot),
                            MenuLabel(nSlot + 1, sPath).GetText());
    }
    if (nCount == 0) {
        m_recentMenu.Append(IDM_FILE_RECENT_EMPTY, QM_RECENT_EMPTY);
        m_recentMenu.EnableItem(IDM_FILE_RECENT_EMPTY, false);
    }
}

bool QMMainFrame::OpenRecent(UINT uCommand)
{
    if (uCommand < IDM_FILE_RECENT_FIRST || uCommand > IDM_FILE_RECENT_LAST) {
        return false;
    }
    VString sPath;
    const QMRegistrySlots slots;
    if (!slots.Read(static_cast<int>(uCommand - IDM_FILE_RECENT_FIRST), sPath)) {
        return false;
    }
    if (sPath == QM_RECENT_EMPTY) {
        return true;
    }
    if (!ActivateIfOpen(sPath.GetText(), true)) {
        if (!FileExists(sPath.GetText())) {
            RemoveRecent(sPath.GetText());
            RebuildRecentMenu();
            TellOf("File '", sPath, "' does not exist.");
            return false;
        }
        if (!CreateDocument(sPath.GetText(), false)) {
            TellOf("Failed to open file '", sPath, "'.");
            return false;
        }
    }
    AddRecent(sPath.GetText());
    RebuildRecentMenu();
    return true;
}
