#include "toolkit/vapplication.h"

#include "toolkit/vwindow.h"

namespace {

VString& ClassName()
{
    static VString sName;
    return sName;
}

std::unique_ptr<VApplication>& Current()
{
    static std::unique_ptr<VApplication> pCurrent;
    return pCurrent;
}

HICON LoadClassIcon(HINSTANCE hModule, UINT uIconId)
{
    return uIconId == 0 ? LoadIconA(nullptr, IDI_APPLICATION)
                        : LoadIconA(hModule, MAKEINTRESOURCEA(uIconId));
}

} // namespace

VApplication& GetApplication()
{
    if (Current() == nullptr) {
        Current() = std::make_unique<VApplication>();
    }
    return *Current();
}

void SetApplication(std::unique_ptr<VApplication> pApplication)
{
    Current() = std::move(pApplication);
}

VApplication::~VApplication()
{
    if (!m_sRegisteredClass.IsEmpty()) {
        UnregisterClassA(m_sRegisteredClass.GetText(), m_hClassOwner);
    }
}

HINSTANCE VApplication::GetInstance()
{
    return m_hInstance == nullptr ? GetModuleHandleA(nullptr) : m_hInstance;
}

HINSTANCE VApplication::GetResourceModule()
{
    return m_hResourceModule == nullptr ? GetInstance() : m_hResourceModule;
}

const char* VApplication::GetClassName()
{
    return ClassName().IsEmpty() ? "VWindow" : ClassName().GetText();
}

void VApplication::SetClassName(const char* szName)
{
    ClassName() = szName;
}

bool VApplication::RegisterCopy(const char* szName)
{
    HINSTANCE hInstance = GetApplication().GetInstance();
    WNDCLASSA record = {};
    if (GetClassInfoA(hInstance, szName, &record)) {
        return true;
    }
    if (!GetClassInfoA(hInstance, GetClassName(), &record)) {
        return false;
    }
    record.lpszClassName = szName;
    record.hInstance = hInstance;
    return RegisterClassA(&record) != 0;
}

bool VApplication::Initialize(HINSTANCE hInstance, int nShowCommand, UINT uIconId, int nBackground,
                              const WNDCLASSA* pRecord)
{
    m_hInstance = hInstance;
    m_hResourceModule = hInstance;
    m_nShowCommand = nShowCommand;
    WNDCLASSA record = {};
    if (pRecord != nullptr) {
        record = *pRecord;
    } else {
        record.style = CS_HREDRAW | CS_VREDRAW | CS_DBLCLKS;
        record.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(nBackground));
    }
    if (record.hIcon == nullptr) {
        record.hIcon = LoadClassIcon(GetResourceModule(), uIconId);
    }
    if (record.hInstance == nullptr) {
        record.hInstance = hInstance;
    }
    if (record.lpfnWndProc == nullptr) {
        record.lpfnWndProc = &VWindow::WindowProc;
    }
    if (record.hCursor == nullptr) {
        record.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    }
    if (record.lpszClassName == nullptr) {
        record.lpszClassName = GetClassName();
    }
    if (RegisterClassA(&record) == 0) {
        return false;
    }
    m_hClassOwner = record.hInstance;
    m_sRegisteredClass = record.lpszClassName;
    SetClassName(m_sRegisteredClass.GetText());
    return true;
}

int RunMessageLoop(VWindow& window)
{
    MSG message = {};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        HACCEL hAccelerators = window.GetAccelerators();
        if (hAccelerators != nullptr &&
            TranslateAcceleratorA(window.GetHandle(), hAccelerators, &message) != 0) {
            continue;
        }
        if (!window.PreTranslate(message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
    return static_cast<int>(message.wParam);
}
