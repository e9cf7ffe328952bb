#include "tools/qmbrowserlauncher.h"

#include <ddeml.h>

#include <vector>

#include "base/vfilesystem.h"
#include "toolkit/vregkey.h"
#include "tools/qmbrowserrules.h"

namespace {

// Owns a string handle of the DDE library.
class DdeString
{
public:
    DdeString(DWORD uInstance, const char* szText)
        : m_uInstance(uInstance), m_hString(DdeCreateStringHandleA(uInstance, szText, CP_WINANSI))
    {}
    DdeString(const DdeString&) = delete;
    DdeString& operator=(const DdeString&) = delete;
    ~DdeString()
    {
        if (m_hString != nullptr) {
            DdeFreeStringHandle(m_uInstance, m_hString);
        }
    }
    HSZ Get() const { return m_hString; }

private:
    DWORD m_uInstance;
    HSZ m_hString;
};

class DdeConversation
{
public:
    DdeConversation(DWORD uInstance, const DdeString& service, const DdeString& topic)
        : m_hConversation(DdeConnect(uInstance, service.Get(), topic.Get(), nullptr))
    {}
    DdeConversation(const DdeConversation&) = delete;
    DdeConversation& operator=(const DdeConversation&) = delete;
    ~DdeConversation()
    {
        if (m_hConversation != nullptr) {
            DdeDisconnect(m_hConversation);
        }
    }
    HCONV Get() const { return m_hConversation; }

private:
    HCONV m_hConversation;
};

// DdeInitialize wants a callback. All notifications are switched off, so it is never called.
HDDEDATA CALLBACK OnDdeEvent(UINT, UINT, HCONV, HSZ, HSZ, HDDEDATA, ULONG_PTR, ULONG_PTR)
{
    return nullptr;
}

bool ReadClassDefault(const char* szKey, VString& sText)
{
    VRegKey key;
    return key.Open(szKey, HKEY_CLASSES_ROOT, KEY_READ) && key.ReadText("", sText);
}

// The program that the registry names for files of that extension; empty when it names none.
VString ProgramForExtension(const char* szExtension)
{
    VString sType;
    VString sCommand;
    if (!ReadClassDefault(szExtension, sType)) {
        return {};
    }
    sType.Append(R"(\shell\open\command)");
    if (!ReadClassDefault(sType.GetText(), sCommand)) {
        return {};
    }
    return QMProgramOfCommand(sCommand.GetText(), &FileExists);
}

// Starts the program. Its path is passed apart from the command line: for "c:\program files\b.exe"
// in the command line alone, Windows would try "c:\program.exe" first. A program that needs the
// command interpreter is not started.
bool StartProgram(const char* szProgram, const char* szUrl)
{
    if (QMNeedsInterpreter(szProgram)) {
        return false;
    }
    const VString sLine = QMBrowserCommandLine(szProgram, szUrl);
    // CreateProcess writes into its command line, so it gets a copy.
    std::vector<char> line(sLine.GetText(), sLine.GetText() + sLine.GetLength() + 1);
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessA(szProgram, line.data(), nullptr, nullptr, FALSE,
                        NORMAL_PRIORITY_CLASS | CREATE_DEFAULT_ERROR_MODE, nullptr, nullptr,
                        &startup, &process)) {
        return false;
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

} // namespace

QMBrowserLauncher::~QMBrowserLauncher()
{
    if (m_uDdeInstance != 0) {
        DdeUninitialize(m_uDdeInstance);
    }
}

QMBrowserLauncher::Result QMBrowserLauncher::Launch(const char* szUrl)
{
    const char* szService = m_pszLastService;
    if (szService == nullptr) {
        VString sPath;
        FindBrowser(sPath);
        szService = QMServiceOfBrowser(sPath.GetText());
    }
    if (Ask(szUrl, szService) == Done) {
        return Done;
    }
    VString sPath;
    if (!FindBrowser(sPath)) {
        return NoBrowser;
    }
    return StartProgram(sPath.GetText(), szUrl) ? Done : NotStarted;
}

// Asks the browser with that service, and the other one when it does not answer.
QMBrowserLauncher::Result QMBrowserLauncher::Ask(const char* szUrl, const char* szService)
{
    Result result = Converse(szUrl, szService);
    if (result == NoConversation) {
        szService = QMOtherBrowserService(szService);
        result = Converse(szUrl, szService);
    }
    m_pszLastService = result == Done ? szService : nullptr;
    return result;
}

QMBrowserLauncher::Result QMBrowserLauncher::Converse(const char* szUrl, const char* szService)
{
    if (m_uDdeInstance == 0) {
        DdeInitializeA(&m_uDdeInstance, &OnDdeEvent,
                       APPCLASS_STANDARD | APPCMD_CLIENTONLY | CBF_SKIP_ALLNOTIFICATIONS, 0);
    }
    if (m_uDdeInstance == 0) {
        return NoConversation;
    }
    const DdeString service(m_uDdeInstance, szService);
    const DdeString topic(m_uDdeInstance, QM_BROWSER_TOPIC);
    const DdeConversation conversation(m_uDdeInstance, service, topic);
    if (conversation.Get() == nullptr) {
        return NoConversation;
    }
    const DdeString item(m_uDdeInstance, QMBrowserItem(szUrl).GetText());
    if (item.Get() == nullptr) {
        return NoConversation;
    }
    // Kept: a browser that has accepted the conversation and then does not answer counts as one
    // that has shown the page.
    HDDEDATA hAnswer = DdeClientTransaction(nullptr, 0, conversation.Get(), item.Get(), CF_TEXT,
                                            XTYP_REQUEST, m_uTimeOut, nullptr);
    if (hAnswer != nullptr) {
        DdeFreeDataHandle(hAnswer);
    }
    return Done;
}

bool QMBrowserLauncher::FindBrowser(VString& sPath)
{
    if (sPath.IsEmpty()) {
        sPath = ProgramForExtension(".htm");
        if (!FileExists(sPath.GetText())) {
            sPath.Clear();
        }
    }
    return FileExists(sPath.GetText());
}
