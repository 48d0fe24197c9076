#include "gui/layout/LoopBoxCalculator.h"

#include "Diagnostics/Sink.h"
#include "Utilities/Limits.h"
#include "Utilities/Tools/Vector.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

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

bool IsOperator(std::string_view token) {
    return token == "+" || token == "-" || token == "/" || token == "*";
}

/// False if the result isn't available in 32 bits.
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
    explicit Calculator(std::string_view formula) : formula_(formula) {}

    std::size_t CountSteps() const {
        return formula_.empty()
                   ? 0
                   : 1 + static_cast<std::size_t>(std::count(formula_.begin(), formula_.end(), ','));
    }

    /// True if the formula is sound; its value is then in `result`.
    bool Run(long& result) {
        if (CountSteps() < 3) return Fault("formula with wrong syntax, or wrong delimited. Formula: ");
        for (std::size_t begin = 0; begin <= formula_.size();) {
            std::size_t const end = std::min(formula_.find(',', begin), formula_.size());
            if (!Take(formula_.substr(begin, end - begin))) return false;
            begin = end + 1;
        }
        if (top_ != 1) return false;
        result = stack_[0];
        return true;
    }

private:
    bool Fault(char const* what) const {
        ReportFault(what, String(formula_));
        return false;
    }
    bool Take(std::string_view token) {
        if (IsOperator(token)) return Operate(token.front());
        try {
            long const number = String(token).GetLong();
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

    std::string_view formula_;
    /// Its own bounds check tells of too many values.
    Utilities::Vector<long> stack_{100};
    std::uint32_t top_ = 0;
};

} // namespace

bool EvaluateLoopBoxFormula(String& value) {
    long const start = value.FindSubstring(keyword, 0);
    if (start == -1) return true;
    long const open = start + keywordLength;
    long const close = value.FindSubstring(")", open);
    if (close == -1) {
        ReportFault("formula with wrong syntax, right parentehesis not found. Value: ", value);
        return true;
    }
    // The last byte of the keyword may be that of the text: nothing comes after it then.
    auto const from = std::min(open + 1, close);
    std::string_view const formula =
        std::string_view(value.GetStdString())
            .substr(static_cast<std::size_t>(from), static_cast<std::size_t>(close - from));
    Calculator calculator(formula);
    if (calculator.CountSteps() > Utilities::Limits::Get().formulaSteps) return false;
    long result = 0;
    if (calculator.Run(result)) value.Replace(value.Mid(start, close - start + 1), String(result));
    return true;
}

} // namespace GUI
