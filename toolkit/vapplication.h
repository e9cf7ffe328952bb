// VApplication: what the whole program knows of itself: instance, resource module, name.
#pragma once

#include <windows.h>

#include <memory>

#include "base/vstring.h"

class VWindow;

class VApplication
{
public:
    VApplication() = default;
    VApplication(const VApplication&) = delete;
    VApplication& operator=(const VApplication&) = delete;

    // Unregisters the window class.
    virtual ~VApplication();
    // Asks the system when none was set.
    virtual HINSTANCE GetInstance();
    virtual HINSTANCE GetResourceModule();

    // The class name that Initialize registers, for windows without one of their own; "VWindow"
    // when none was set. It lives as long as the program.
    static const char* GetClassName();
    static void SetClassName(const char* szName);

    // Registers the same class once more under another name, at the first need; false when that
    // fails.
    static bool RegisterCopy(const char* szName);

    // Notes instance and show command and registers the window class. Without a record one is made
    // of the icon's id (0 for the system's own) and the background's colour index; a record's empty
    // fields are filled.
    bool Initialize(HINSTANCE hInstance, int nShowCommand, UINT uIconId, int nBackground,
                    const WNDCLASSA* pRecord = nullptr);

    const char* GetName() const { return m_sName.GetText(); }
    void SetName(const char* szName) { m_sName = szName; }
    int GetShowCommand() const { return m_nShowCommand; }

private:
    HINSTANCE m_hInstance = nullptr;
    HINSTANCE m_hResourceModule = nullptr;
    int m_nShowCommand = SW_SHOWNORMAL;
    VString m_sName;
    VString m_sRegisteredClass;
    HINSTANCE m_hClassOwner = nullptr;
};

// The one application object, made at the first call and deleted at the end of the process.
VApplication& GetApplication();

// Makes another object the current one, and its owner this module; the former is deleted.
void SetApplication(std::unique_ptr<VApplication> pApplication);

// Gets messages until the quit message: accelerators of the window first, then its PreTranslate,
// then translation and dispatch. Returns the quit message's word.
int RunMessageLoop(VWindow& window);
