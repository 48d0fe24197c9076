#pragma once

#include "gui/elements/Pane.h"
#include "gui/elements/drawing/VerdictSign.h"

namespace GUI {

/// The verdict on a reading as a sign and a word that can be read from two metres, with the number that
/// decided it, its limit and the reason.
///
/// Attributes: "Fill" (No; the whole pane is in the verdict's colour, with sign and word alone), "Mono" (No;
/// ink alone, for places near measured colours), "SignSize" (88) and "WordSize" (72; pixels, the word shrinks
/// to fit, the sign doesn't), and those of `Pane`.
///
/// Of the data source at each update, all texts but the first as they are shown: "Verdict" ("Pass",
/// "Marginal", "Fail"; anything else is no data), "Word" (the verdict in the user's language), "Quantity"
/// (what was judged, "ΔE00"), "Condition", "Value" (a number, or text with "." and "-"; shown with 2
/// decimals, a missing one as a dash), "Limit", "Warning", "Reason".
class Verdict : public Pane {
public:
    static constexpr Attribute fill{"Fill", AttributeType::Flag, "No",
                                    "The whole pane in the verdict's colour"};
    static constexpr Attribute mono{"Mono", AttributeType::Flag, "No", "In ink alone"};
    static constexpr Attribute signSize{"SignSize", AttributeType::Number, "88", "Size of the sign in pixels",
                                        false,      unsignedRange};
    static constexpr Attribute wordSize{"WordSize", AttributeType::Number,
                                        "72",       "Largest height of the word in pixels",
                                        false,      unsignedRange};
    static constexpr Attribute attributes[] = {fill, mono, signSize, wordSize};

    Diagnostics::String GetValueString() override { return "Verdict"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnLanguageChanged() override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    Accessible GetAccessible() override;

    VerdictKind GetVerdict() const { return kind_; }

private:
    struct Texts {
        Utilities::String word;
        Utilities::String quantity;
        Utilities::String condition;
        Utilities::String value;
        Utilities::String limit;
        Utilities::String warning;
        Utilities::String reason;
    };

    void Read();
    /// The sign at the left and the word beside it, in a band of that height.
    void PaintSignAndWord(PlatformIndependentDeviceContext& context, VerdictTones const& tones,
                          RGBVector const& ink, short width, short height) const;
    void PaintNumbers(PlatformIndependentDeviceContext& context, short width, short top, short height) const;

    VerdictKind kind_ = VerdictKind::NoData;
    Texts texts_;
    bool fill_ = false;
    bool mono_ = false;
    short signSize_ = 88;
    short wordSize_ = 72;
};

} // namespace GUI
