// QMProgress: watches long work on transactions, such as an import or a save, and may end it.
#pragma once

#include <cstdint>

class QMProgress
{
public:
    virtual ~QMProgress() = default;

    // Told again and again how much is done, in units of the work's own. uTotal is 0 when it is not
    // known. Returns false to give the work up. Each call must be cheap.
    virtual bool OnStep(uint64_t uDone, uint64_t uTotal) = 0;

    // Called once when the work cannot be given up any more. The answers of OnStep count no longer.
    virtual void OnNoReturn() {}
};

// One of several parts of some work, each of them as long as the others: tells the progress of the
// whole. pWhole may be null.
class QMProgressPart : public QMProgress
{
public:
    QMProgressPart(QMProgress* pWhole, uint64_t uPart, uint64_t uParts)
        : m_pWhole(pWhole), m_uPart(uPart), m_uParts(uParts)
    {}

    bool OnStep(uint64_t uDone, uint64_t uTotal) override
    {
        return m_pWhole == nullptr || m_pWhole->OnStep(m_uPart * uTotal + uDone, m_uParts * uTotal);
    }
    void OnNoReturn() override
    {
        if (m_pWhole != nullptr) {
            m_pWhole->OnNoReturn();
        }
    }

private:
    QMProgress* m_pWhole;
    uint64_t m_uPart;
    uint64_t m_uParts;
};
