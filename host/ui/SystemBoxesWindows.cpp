#include "host/ui/SystemBoxes.h"

#include "host/ui/SystemBox.h"

namespace {

constexpr wchar_t SeenMark[] = L"lisphost.seen"; // a property of the boxes that were answered

// Is told by the system of each window that becomes active in this thread:
// https://learn.microsoft.com/windows/win32/winmsg/about-hooks#wh_cbt
class CbtHookDriver final : public SystemBoxDriver
{
public:
    explicit CbtHookDriver(HostServices &services)
        : m_hook(SetWindowsHookExW(WH_CBT, windowChanges, nullptr, GetCurrentThreadId()))
    {
        s_services = &services;
    }
    ~CbtHookDriver() override
    {
        UnhookWindowsHookEx(m_hook);
        s_services = nullptr;
    }
    CbtHookDriver(const CbtHookDriver &) = delete;
    CbtHookDriver &operator=(const CbtHookDriver &) = delete;

private:
    // A box is complete when it is activated, but it is not shown yet: it is answered from its own loop of messages.
    static LRESULT CALLBACK windowChanges(int code, WPARAM window, LPARAM details)
    {
        auto *box = reinterpret_cast<HWND>(window);
        if (code == HCBT_ACTIVATE && SystemBox(box).isMessageBox() && GetPropW(box, SeenMark) == nullptr) {
            SetPropW(box, SeenMark, box);
            SetTimer(box, reinterpret_cast<UINT_PTR>(box), 0, answer);
        }
        return CallNextHookEx(nullptr, code, window, details);
    }

    static void CALLBACK answer(HWND window, UINT, UINT_PTR timer, DWORD)
    {
        KillTimer(window, timer);
        SystemBox box(window);
        answerDialog(box, *s_services);
    }

    static inline HostServices *s_services = nullptr; // the system's calls carry none
    HHOOK m_hook;
};

} // namespace

std::unique_ptr<SystemBoxDriver> driveSystemBoxes(HostServices &services)
{
    return std::make_unique<CbtHookDriver>(services);
}
