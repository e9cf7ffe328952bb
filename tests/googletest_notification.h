// What GoogleTest has of std::mutex, for a compiler whose thread model comes without it: the signal
// that its own thread helpers wait for. Included ahead of GoogleTest, whose version then stays out.
#pragma once

#include <atomic>

namespace testing::internal {

class Notification
{
public:
    void Notify() { m_bNotified = true; }
    void WaitForNotification() const
    {
        while (!m_bNotified) {
        }
    }

private:
    std::atomic<bool> m_bNotified = false;
};

} // namespace testing::internal
