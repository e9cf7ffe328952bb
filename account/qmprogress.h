// QMProgress: gets to know how far long work is, such as an import or a save, and may end the work.
#pragma once

#include <cstdint>

class QMProgress
{
public:
    virtual ~QMProgress() = default;

    // The work calls this often, with what is done and what there is to do, in units of its own.
    // uTotal is 0 when it is not known. Returns false to give the work up. A call must be cheap.
    virtual bool OnStep(uint64_t uDone, uint64_t uTotal) = 0;

    // The work calls this once, when it cannot be given up any more. From then on it ignores what
    // OnStep returns.
    virtual void OnNoReturn() {}
};

// One of several equal parts of some work. Passes the progress of the part on to pWhole, as
// progress of the whole. pWhole may be null.
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
