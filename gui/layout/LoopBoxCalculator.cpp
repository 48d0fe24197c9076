#include "gui/layout/LoopBoxCalculator.h"

#include "Diagnostics/Sink.h"
#include "Utilities/Tools/Vector.h"

#include <cstdint>
#include <limits>

namespace GUI {

using Norvelian::Utilities::Exceptions::OutOfRangeException;
using Utilities::String;

namespace {

constexpr char const* keyword = "LOOPBOX_CALC";
constexpr long keywordLength = 12;

void ReportFault(char const* what, String const& text) {
    Diagnostics::String fault("LoopBox: Calculator: ");
    fault += what;
    fault += text.GetValueString();
    Diagnostics::Report("LoopBox", fault);
}

bool IsOperator(String const& token) { return token == "+" || token == "-" || token == "/" || token == "*"; }

/// False if the result can't be had in 32 bits.
bool Apply(char operation, std::int32_t a, std::int32_t b, long& result) {
    std::int32_t number = 0;
    bool fault = false;
    switch (operation) {
    case '+':
        fault = __builtin_add_overflow(a, b, &number);
        break;
    case '-':
        fault = __builtin_sub_overflow(a, b, &number);
        break;
    case '*':
        fault = __builtin_mul_overflow(a, b, &number);
        break;
    default:
        fault = b == 0 || (b == -1 && a == std::numeric_limits<std::int32_t>::min());
        if (!fault) number = a / b;
    }
    result = number;
    return !fault;
}

class Calculator {
public:
    explicit Calculator(String const& formula) : formula_(formula) {}

    /// True if the formula is sound; its value is then in `result`.
    bool Run(long& result) {
        long const count = formula_.GetTokenCount(',');
        if (count < 3) return Fault("formula with wrong syntax, or wrong delimited. Formula: ");
        for (long i = 0; i < count; ++i)
            if (!Take(formula_.GetToken(i, ','))) return false;
        if (top_ != 1) return false;
        result = stack_[0];
        return true;
    }

private:
    bool Fault(char const* what) const {
        ReportFault(what, formula_);
        return false;
    }
    bool Take(String const& token) {
        if (IsOperator(token)) return Operate(token.GetCharPointer()[0]);
        try {
            long const number = token.GetLong();
            stack_[top_] = number;
            ++top_;
        } catch (OutOfRangeException const&) {
            return Fault("formula contains non nummeric values. Formula: ");
        }
        return true;
    }
    bool Operate(char operation) {
        if (top_ < 2)
            return Fault("can't perform mathematical operation. At least 2 values necessary. Formula: ");
        long& below = stack_[top_ - 2];
        if (!Apply(operation, static_cast<std::int32_t>(below), static_cast<std::int32_t>(stack_[top_ - 1]),
                   below))
            return Fault("division by zero or result beyond 32 bits. Formula: ");
        --top_;
        return true;
    }

    String const& formula_;
    /// Its own bounds check tells of too many values.
    Utilities::Vector<long> stack_{100};
    std::uint32_t top_ = 0;
};

} // namespace

void EvaluateLoopBoxFormula(String& value) {
    long const start = value.FindSubstring(keyword, 0);
    if (start == -1) return;
    long const open = start + keywordLength;
    long const close = value.FindSubstring(")", open);
    if (close == -1) {
        ReportFault("formula with wrong syntax, right parentehesis not found. Value: ", value);
        return;
    }
    String const formula = value.Mid(open + 1, close - open - 1);
    long result = 0;
    if (Calculator(formula).Run(result)) value.Replace(value.Mid(start, close - start + 1), String(result));
}

} // namespace GUI
