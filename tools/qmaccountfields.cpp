#include "tools/qmaccountfields.h"

#include <cstdio>

#include "base/vtext.h"
#include "resources/resource.h"

namespace {

#define QM_FIELD(nControl, name)                                                 \
    {                                                                            \
        nControl, offsetof(QMAccountHeader, name), sizeof(QMAccountHeader::name) \
    }

constexpr QMAccountField aAccountFields[] = {
    QM_FIELD(IDC_ACCOUNT_NUMBER, szAccountNumber),
};

constexpr QMAccountField aBankFields[] = {
    QM_FIELD(IDC_BANK_NAME, szBankName),         QM_FIELD(IDC_BANK_ADDRESS, szBankAddress),
    QM_FIELD(IDC_BANK_CITY, szBankCity),         QM_FIELD(IDC_BANK_STATE, szBankState),
    QM_FIELD(IDC_BANK_ZIP, szBankZip),           QM_FIELD(IDC_BANK_PHONE, szBankPhone),
    QM_FIELD(IDC_BANK_HOMEPAGE, szBankHomepage),
};

constexpr QMAccountField aHolderFields[] = {
    QM_FIELD(IDC_HOLDER_NAME, szHolderName), QM_FIELD(IDC_HOLDER_ADDRESS, szHolderAddress),
    QM_FIELD(IDC_HOLDER_CITY, szHolderCity), QM_FIELD(IDC_HOLDER_STATE, szHolderState),
    QM_FIELD(IDC_HOLDER_ZIP, szHolderZip),   QM_FIELD(IDC_HOLDER_PHONE, szHolderPhone),
};

#undef QM_FIELD

} // namespace

std::span<const QMAccountField> QMAccountFields(QMAccountPart part)
{
    switch (part) {
        case QMAccountPart::Account:
            return aAccountFields;
        case QMAccountPart::Bank:
            return aBankFields;
        default:
            return aHolderFields;
    }
}

VString QMGetAccountText(const QMAccountHeader& header, const QMAccountField& field)
{
    const char* pText = reinterpret_cast<const char*>(&header) + field.uOffset;
    return VString(pText, static_cast<uint32_t>(field.uSize - 1));
}

// Kept: an empty text is ignored, and the old one stays. A user cannot clear a field.
void QMTakeAccountText(QMAccountHeader& header, const QMAccountField& field, const char* szText)
{
    if (*szText != '\0') {
        VCopyText(reinterpret_cast<char*>(&header) + field.uOffset, field.uSize, szText);
    }
}

VString QMMinimumBalanceText(float fBalance)
{
    char szText[64]; // the largest single has 39 digits before its point
    snprintf(szText, sizeof szText, "%10.2f", static_cast<double>(fBalance));
    return VString(szText);
}

void QMTakeMinimumBalance(float& fBalance, const char* szText)
{
    if (*szText == '\0') {
        fBalance = 0;
        return;
    }
    float fRead = 0;
    if (sscanf(szText, "%f", &fRead) == 1) {
        fBalance = fRead;
    }
}

void QMCopyParticulars(const QMAccountHeader& from, QMAccountHeader& into)
{
    for (const QMAccountPart part :
         {QMAccountPart::Account, QMAccountPart::Bank, QMAccountPart::Holder}) {
        for (const QMAccountField& field : QMAccountFields(part)) {
            VCopyText(reinterpret_cast<char*>(&into) + field.uOffset, field.uSize,
                      QMGetAccountText(from, field).GetText());
        }
    }
    into.dtOpened = from.dtOpened;
    into.fMinimumBalance = from.fMinimumBalance;
    into.bReadOnly = from.bReadOnly;
}
