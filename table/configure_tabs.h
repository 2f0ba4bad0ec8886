// What the files of frmConfigure share: the form is one class whose tabs are
// built and filled in files of their own (configure_checks_tab.cpp,
// configure_misc_tab.cpp, configure_bets_tab.cpp, configure_payoffs_tab.cpp);
// the shell, the checks and the closing steps stay in configure_form.cpp.
// What must stay true:
// - Every amount on the form is shown and typed with the same decimals.
#pragma once

#include <QString>

#include "core/currency.h"
#include "core/money.h"

namespace configure_tabs {

// Decimals an amount box takes from the keyboard.
inline constexpr int kAmountDecimals = 2;

// An amount as the form shows it.
inline QString Money(Currency a) { return QString::fromStdString(FormatMoney(a)); }

}  // namespace configure_tabs
