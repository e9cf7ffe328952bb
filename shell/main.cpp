// The entry of the program. One instance runs for each user: a second start hands its command line
// to the first and ends.

#include <windows.h>

#include <cstdio>
#include <cstdlib>

#include "resources/resource.h"
#include "shell/qmcommandline.h"
#include "shell/qmmainframe.h"
#include "toolkit/vapplication.h"
#include "toolkit/vmessages.h"

namespace {

// Owns the handle of a kernel object and closes it.
class KernelHandle
{
public:
    explicit KernelHandle(HANDLE hObject) : m_hObject(hObject) {}
    KernelHandle(const KernelHandle&) = delete;
    KernelHandle& operator=(const KernelHandle&) = delete;
    ~KernelHandle()
    {
        if (m_hObject != nullptr) {
            CloseHandle(m_hObject);
        }
    }
    bool IsValid() const { return m_hObject != nullptr; }

private:
    HANDLE m_hObject;
};

VString InstanceName(const char* szProduct, HINSTANCE hInstance)
{
    char szName[256];
    snprintf(szName, sizeof szName, "%s:%llX:%X", szProduct,
             static_cast<unsigned long long>(reinterpret_cast<UINT_PTR>(hInstance)), IDI_QUILLMARK);
    return VString(szName);
}

// Waits for the window of the first instance, for as long as it takes: that instance may still be
// starting.
HWND FindFirstInstance(const char* szClass)
{
    constexpr DWORD uPause = 50; // milliseconds
    for (;;) {
        if (HWND hFrame = FindWindowA(szClass, nullptr)) {
            return hFrame;
        }
        Sleep(uPause);
    }
}

// Kept: the exit code 1 means that the arguments were handed over.
int HandOver(const char* szClass)
{
    HWND hFrame = FindFirstInstance(szClass);
    ShowWindow(hFrame, SW_SHOWNORMAL);
    SetForegroundWindow(hFrame);
    // The first instance runs in another folder.
    const VString sText = QMWithFullNames(QMJoinArguments(__argc, __argv));
    COPYDATASTRUCT data = {};
    data.dwData = static_cast<ULONG_PTR>(__argc);
    data.cbData = sText.GetLength() + 1;
    data.lpData = const_cast<char*>(sText.GetText());
    SendMessageA(hFrame, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
    return 1;
}

int RunFirstInstance(HINSTANCE hInstance, int nShowCmd, const char* szClass, const char* szProduct)
{
    VApplication::SetClassName(szClass);
    if (!GetApplication().Initialize(hInstance, nShowCmd, IDI_QUILLMARK, COLOR_WINDOW + 1)) {
        return 0;
    }
    GetApplication().SetName(szProduct);
    QMMainFrame frame(QMJoinArguments(__argc, __argv).GetText());
    return frame.Run(WS_OVERLAPPEDWINDOW, SW_SHOWNORMAL, IDC_MDICLIENT, IDC_FIRSTCHILD);
}

} // namespace

int WINAPI WinMain(HINSTANCE hInstance, HINSTANCE /*hPrevInstance*/, char* /*lpCmdLine*/,
                   int nShowCmd)
{
    const VString sProduct = ResourceString(IDS_APPLICATION, hInstance);
    const VString sInstance = InstanceName(sProduct.GetText(), hInstance);
    VString sMutex("vmutex");
    sMutex.Append(sInstance);
    SetLastError(ERROR_SUCCESS);
    const KernelHandle mutex(CreateMutexA(nullptr, FALSE, sMutex.GetText()));
    const bool bFirst = mutex.IsValid() && GetLastError() != ERROR_ALREADY_EXISTS;
    return bFirst ? RunFirstInstance(hInstance, nShowCmd, sInstance.GetText(), sProduct.GetText())
                  : HandOver(sInstance.GetText());
}
