#include "tests/e2e/entry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "account/qmaccount.h"
#include "base/vtext.h"
#include "resources/resource.h"
#include "tests/e2e/wait.h"
#include "tests/support/support.h"

namespace {

// The radio buttons from top to bottom, and their types.
constexpr struct
{
    int nId;
    int32_t lType;
} aRadios[] = {{IDC_TX_CHECK, QM_TRANS_CHECK},
               {IDC_TX_DEPOSIT, QM_TRANS_DEPOSIT},
               {IDC_TX_WITHDRAWAL, QM_TRANS_WITHDRAWAL},
               {IDC_TX_DIRECTDEPOSIT, QM_TRANS_DIRECT_DEPOSIT},
               {IDC_TX_DIRECTDEBIT, QM_TRANS_DIRECT_DEBIT},
               {IDC_TX_ATMDEPOSIT, QM_TRANS_ATM_DEPOSIT},
               {IDC_TX_ATMWITHDRAWAL, QM_TRANS_ATM_WITHDRAWAL},
               {IDC_TX_AUTOMATICPAYMENT, QM_TRANS_AUTOMATIC_PAYMENT},
               {IDC_TX_TRANSFERCREDIT, QM_TRANS_TRANSFER_CREDIT},
               {IDC_TX_TRANSFERDEBIT, QM_TRANS_TRANSFER_DEBIT},
               {IDC_TX_INTEREST, QM_TRANS_INTEREST_PAID},
               {IDC_TX_FEE, QM_TRANS_FEE}};

constexpr struct
{
    int nId;
    uint32_t uTag;
} aTagBoxes[] = {{IDC_TX_TAX, QM_TRANS_FLAG_TAX},
                 {IDC_TX_EXPENSE, QM_TRANS_FLAG_EXPENSE},
                 {IDC_TX_VOIDED, QM_TRANS_FLAG_VOIDED}};

QMDate DateFromText(const std::string& sDate)
{
    return MakeDate(sDate.substr(5, 2) + "/" + sDate.substr(8, 2) + "/" + sDate.substr(0, 4));
}

// Moves by the arrow keys, from the selected type on.
void TypeType(const DialogWindow& dialog, const Keyboard& keyboard, int32_t lType)
{
    const auto* pOn = std::find_if(std::begin(aRadios), std::end(aRadios),
                                   [&](const auto& radio) { return dialog.IsChecked(radio.nId); });
    ASSERT_NE(pOn, std::end(aRadios));
    keyboard.TabTo(dialog, pOn->nId);
    while (pOn->lType != lType) {
        pOn = pOn + 1 == std::end(aRadios) ? aRadios : pOn + 1;
        keyboard.Press(VK_DOWN);
        Await("the next type", [&] { return dialog.IsChecked(pOn->nId); });
    }
}

} // namespace

int RadioOfType(int32_t lType)
{
    for (const auto& radio : aRadios) {
        if (radio.lType == lType) {
            return radio.nId;
        }
    }
    FailTest("no such type");
}

void Entry::Fill(const DialogWindow& dialog) const
{
    dialog.Check(RadioOfType(lType));
    if (lType == QM_TRANS_CHECK) {
        if (!sNumber.empty()) {
            dialog.SetText(IDC_TX_NUMBER, sNumber);
        }
        dialog.SetText(IDC_TX_DESCRIPTION, sDescription);
    }
    dialog.SetDate(IDC_TX_DATE, sDate);
    dialog.SetText(IDC_TX_AMOUNT, sAmount);
    dialog.SetText(IDC_TX_MEMO, sMemo);
    dialog.SetText(IDC_TX_CATEGORY, sCategory);
    for (const auto& box : aTagBoxes) {
        dialog.Check(box.nId, (uTag & box.uTag) != 0);
    }
    dialog.Check(IDC_TX_CLEARED, !sCleared.empty());
    dialog.SetDate(IDC_TX_DATECLEARED, sCleared.empty() ? sDate : sCleared);
}

void Entry::Type(const DialogWindow& dialog, const Keyboard& keyboard) const
{
    TypeType(dialog, keyboard, lType);
    if (lType == QM_TRANS_CHECK) {
        if (!sNumber.empty()) {
            keyboard.Fill(dialog, IDC_TX_NUMBER, sNumber);
        }
        keyboard.TabTo(dialog, IDC_TX_DATE);
        keyboard.Fill(dialog, IDC_TX_DESCRIPTION, sDescription);
    }
    dialog.SetDate(IDC_TX_DATE, sDate);
    keyboard.Fill(dialog, IDC_TX_AMOUNT, sAmount);
    keyboard.Fill(dialog, IDC_TX_MEMO, sMemo);
    keyboard.Fill(dialog, IDC_TX_CATEGORY, sCategory);
    for (const auto& box : aTagBoxes) {
        keyboard.Check(dialog, box.nId, (uTag & box.uTag) != 0);
    }
    keyboard.Check(dialog, IDC_TX_CLEARED, !sCleared.empty());
    if (!sCleared.empty()) {
        dialog.SetDate(IDC_TX_DATECLEARED, sCleared);
    }
}

QMTransaction Entry::AsTransaction(uint32_t uOffered) const
{
    QMTransaction transaction;
    transaction.lType = lType;
    transaction.dtDate = DateFromText(sDate);
    transaction.dtCleared = DateFromText(sCleared.empty() ? sDate : sCleared);
    const bool bOwnNumber = lType == QM_TRANS_CHECK && !sNumber.empty();
    transaction.lNumber = bOwnNumber ? static_cast<uint32_t>(std::stoul(sNumber)) : uOffered;
    transaction.fAmount = static_cast<float>(strtod(sAmount.c_str(), nullptr));
    transaction.lFlags = uTag | (sCleared.empty() ? QM_TRANS_FLAG_NOT_CLEARED : 0);
    VCopyText(transaction.szDescription, lType == QM_TRANS_CHECK ? sDescription.c_str() : "");
    VCopyText(transaction.szMemo, sMemo.c_str());
    VCopyText(transaction.szCategory, sCategory.c_str());
    return transaction;
}

std::string LineOf(const QMTransactionFields& fields)
{
    return TextOf(fields) + " | number " + std::to_string(fields.lNumber) + " | flags " +
           std::to_string(fields.lFlags) + " | cleared " + DateText(fields.dtCleared) + " | " +
           fields.szMemo + " | " + fields.szCategory;
}

std::vector<std::string> LinesOfFile(const std::string& sPath)
{
    QMAccount account(sPath.c_str());
    EXPECT_TRUE(account.Read()) << sPath;
    std::vector<std::string> lines;
    account.store.ForEach(
        [&](const QMTransaction& transaction) { lines.push_back(LineOf(transaction)); });
    account.Close();
    return lines;
}
