#include "tests/e2e/reviewwindow.h"

#include <string>

#include "resources/resource.h"
#include "tests/e2e/remoteprocess.h"
#include "tests/e2e/wait.h"
#include "tests/e2e/windowaccess.h"

ReviewWindow::ReviewWindow(HANDLE hProcess, const DialogWindow& dialog)
    : DialogWindow(dialog), m_list(hProcess, dialog.GetItem(IDC_IMPORT_LIST))
{}

bool ReviewWindow::IsTicked(int nRow) const
{
    return SendTo(m_list.GetHandle(), LVM_GETITEMSTATE, static_cast<WPARAM>(nRow),
                  LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2);
}

std::vector<int> ReviewWindow::GetTicked() const
{
    std::vector<int> rows;
    for (int nRow = 0; nRow < m_list.GetRowCount(); ++nRow) {
        if (IsTicked(nRow)) {
            rows.push_back(nRow);
        }
    }
    return rows;
}

void ReviewWindow::Tick(int nRow, bool bOn) const
{
    m_list.SetState(nRow, INDEXTOSTATEIMAGEMASK(bOn ? 2 : 1), LVIS_STATEIMAGEMASK);
}

void ReviewWindow::Click(int nRow, int nPixels) const
{
    RemoteMemory memory(GetProcess(), sizeof(RECT));
    RECT rect = {LVIR_BOUNDS, 0, 0, 0};
    memory.Write(0, &rect, sizeof rect);
    SendTo(m_list.GetHandle(), LVM_GETITEMRECT, static_cast<WPARAM>(nRow), memory.AsParameter());
    memory.Read(0, &rect, sizeof rect);
    const LPARAM lPlace = MAKELPARAM(nPixels, (rect.top + rect.bottom) / 2);
    PostMessageA(m_list.GetHandle(), WM_LBUTTONDOWN, MK_LBUTTON, lPlace);
    PostMessageA(m_list.GetHandle(), WM_LBUTTONUP, 0, lPlace);
}

int ReviewWindow::GetBoxState(int nId) const
{
    return static_cast<int>(SendTo(GetItem(nId), BM_GETCHECK));
}

void ReviewWindow::PressBox(int nId, int nState) const
{
    Press(nId);
    Await("state " + std::to_string(nState) + " of box " + std::to_string(nId),
          [&] { return GetBoxState(nId) == nState; });
}

ReviewWindow AwaitReview(const Program& program)
{
    const ReviewWindow review(program.GetProcess(), AwaitDialog(program, "Import File"));
    Await("the review to wait for its user",
          [&] { return IsWindowEnabled(review.GetItem(IDC_IMPORT_IMPORT)) != 0; });
    program.Settle();
    return review;
}
