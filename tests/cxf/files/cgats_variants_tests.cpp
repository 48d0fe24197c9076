#include "cxf/conditions/ConditionText.h"
#include "tests/cxf/support.h"

#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <map>

using namespace CxfTest;
using testing::HasSubstr;
using testing::StartsWith;

/// CGATS text as programs and instruments write it, one spelling after the other: each is read right or
/// refused with a reason.
namespace {

struct Variant {
    std::string written;
    std::string expected; ///< what is read, or the reason behind "error: "
};

std::string File(std::string const& header, std::string const& fields, std::string const& values) {
    return "CGATS.17\n" + header + "\nBEGIN_DATA_FORMAT\n" + fields + "\nEND_DATA_FORMAT\nBEGIN_DATA\n" +
           values + "\nEND_DATA\n";
}

std::string Unescaped(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char const sign = text[i] == '\\' && i + 1 < text.size() ? text[i + 1] : '\0';
        if (sign == 'x')
            result += static_cast<char>(std::stoi(std::string(text.substr(i + 2, 2)), nullptr, 16));
        else if (sign)
            result += sign == 'n' ? '\n' : '\t';
        else
            result += text[i];
        i += sign == 'x' ? 3 : sign ? 1 : 0;
    }
    return result;
}

template <class Describe> void CheckAll(std::vector<Variant> const& variants, Describe const& describe) {
    for (Variant const& one : variants) {
        std::string read;
        try {
            read = describe(one.written);
        } catch (Cxf::FileException const& failure) {
            read = "error: " + failure.GetReason();
            EXPECT_GT(failure.GetLine(), 0U) << one.written;
        }
        if (one.expected.starts_with("error: ")) {
            EXPECT_THAT(read, StartsWith("error: ")) << one.written;
            EXPECT_THAT(read, HasSubstr(one.expected.substr(7))) << one.written;
        } else {
            EXPECT_EQ(read, one.expected) << one.written;
        }
    }
}

std::string Numbers(std::vector<double> const& values) {
    std::string text;
    for (double const value : values) {
        char buffer[32];
        std::snprintf(buffer, sizeof(buffer), "%g", value);
        text += (text.empty() ? "" : " ") + std::string(buffer);
    }
    return text;
}

/// A header around one L*a*b* colour: its illuminant and observer.
std::string Viewing(std::string const& header) {
    auto const set = Cxf::ParseSampleSets(File(header, "LAB_L LAB_A LAB_B", "50 10 -10"), "t").front();
    return ViewingText(
        set->GetSamples()[0]->GetSampleAttributes()[0]->GetConditions().GetMeasureConditions());
}
/// A header around one spectrum: filter, geometry, backing.
std::string Measurement(std::string const& header) {
    std::string fields;
    std::string values;
    for (int nm = 380; nm <= 730; nm += 10) {
        fields += "SPECTRAL_NM" + std::to_string(nm) + " ";
        values += "0.5 ";
    }
    auto const set = Cxf::ParseSampleSets(File(header, fields, values), "t").front();
    auto const spectrum = SpectrumOf(*set->GetSamples()[0]).GetMeasureConditions();
    return spectrum.GetMeasureCondition(Key::SpectrumType) + ", " + MeasurementText(spectrum);
}
/// Spellings of the fields of 36 bands, with "#" for the wavelength, and values from 10 to 45 of a hundred.
std::string Bands(std::string const& written) {
    auto const bar = written.find('|');
    std::string const pattern = written.substr(0, bar);
    std::string const header = bar == std::string::npos ? "" : written.substr(bar + 1);
    bool const fraction = header.find("FRACTION") != std::string::npos;
    std::string fields;
    std::string values;
    for (int band = 0; band < 36; ++band) {
        std::string field = pattern;
        field.replace(field.find('#'), 1, std::to_string(380 + 10 * band));
        fields += field + " ";
        values += std::to_string(fraction ? 0.1 + 0.01 * band : 10 + band) + " ";
    }
    auto const set = Cxf::ParseSampleSets(File(header, fields, values), "t").front();
    auto const& attribute = *set->GetSamples()[0]->GetSampleAttributes()[0];
    if (attribute.GetType() != "CXFSpectrum") return "kept as text";
    auto const spectrum = SpectrumOf(*set->GetSamples()[0]);
    return spectrum.GetMeasureConditions().GetMeasureCondition(Key::SpectrumType) + " " +
           Numbers(
               {static_cast<double>(spectrum.GetValues()[0]), static_cast<double>(spectrum.GetValues()[35])});
}
/// Fields and values of one row: the colours in it.
std::string Colours(std::string const& written) {
    auto const bar = written.find('|');
    auto const second = written.find('|', bar + 1);
    std::string const header = second == std::string::npos ? "" : written.substr(second + 1);
    auto const set =
        Cxf::ParseSampleSets(
            File(header, written.substr(0, bar),
                 written.substr(bar + 1, second == std::string::npos ? second : second - bar - 1)),
            "t")
            .front();
    std::string text;
    for (auto const& attribute : set->GetSamples()[0]->GetSampleAttributes()) {
        text += text.empty() ? "" : "; ";
        if (auto const* const colour = dynamic_cast<Cxf::ColorVector const*>(attribute.Get())) {
            auto const& conditions = colour->GetConditions().GetMeasureConditions();
            text += conditions.GetMeasureCondition(Key::ColorSpaceType) + " " +
                    Numbers(colour->GetVector().GetExactValues());
            if (!conditions.GetMeasureCondition(Key::Illumination).empty())
                text += " " + ViewingText(conditions);
        } else {
            text += "text";
        }
    }
    return text;
}

} // namespace

TEST(CgatsVariants, SpectralFields) {
    std::string const right = "Remission 0.1 0.45";
    std::vector<Variant> variants;
    for (char const* const pattern : {"SPECTRAL_NM#",
                                      "SPECTRAL_NM_#",
                                      "SPECTRAL_#",
                                      "Spectral_#",
                                      "SPECTRAL#",
                                      "SPECTRAL_PCT#",
                                      "SPEC_#",
                                      "SPEC#",
                                      "NM#",
                                      "nm#",
                                      "NM_#",
                                      "#_NM",
                                      "#nm",
                                      "R_#",
                                      "R#",
                                      "r#",
                                      "S#",
                                      "REFL_#",
                                      "REFL#",
                                      "REFLECTANCE_#",
                                      "\"R(#)\"",
                                      "\"# nm\"",
                                      "\"R #\"",
                                      "LAMBDA_#",
                                      "#"})
        variants.push_back({pattern, right});
    variants.push_back({"SPECTRAL_DEC#|FRACTION yes", right});
    variants.push_back(
        {"SPECTRAL_DEC#", "error: the spectra are said to be on a scale of 1, but a value is 45"});
    variants.push_back({"R#|SPECTRAL_NORM 100", right});
    variants.push_back({"R#|spectral_norm \"100.0\"", right});
    variants.push_back({"R#|SPECTRAL_UNITS percent", right});
    variants.push_back(
        {"R#|SPECTRAL_NORM 1", "error: the spectra are said to be on a scale of 1, but a value is 45"});
    variants.push_back({"R#|SPECTRAL_NORM 1,0", "error: or a number with a decimal point, not a comma"});
    variants.push_back({"R#|SPECTRAL_NORM 1.0\nFRACTION yes", right});
    variants.push_back({"T#", "Transmission 0.1 0.45"});
    variants.push_back({"TRANS_#", "Transmission 0.1 0.45"});
    variants.push_back({"WEIRD_#", "kept as text"});
    CheckAll(variants, Bands);
}

TEST(CgatsVariants, RowsThatDontFitTheirFields) {
    auto const rows = [](std::string const& written) {
        return Colours("SAMPLE_ID LAB_L LAB_A LAB_B|" + written);
    };
    std::string const right = "CIELab 50 10 -10 D50 (assumed), 2° (assumed)";
    CheckAll(
        {{"1 50 10 -10\n2 51 11 -11", right},
         {"1 50 10 -10\n\n\n2 51 11 -11\n", right},
         {"1\t50\t10\t-10\t\n2\t51\t11\t-11\t", right},
         {"\"\"\t50\t10\t-10", right},
         {"1 50 10\n-10 2 51 11 -11", "error: the line has 3 values; expected 4 (an empty cell is written"},
         {"1 50\n10 -10\n2 51\n11 -11", "error: the line has 2 values; expected 4"},
         {"1 50\n10 -10\n2 51\n11 -11|NUMBER_OF_SETS 2", right},
         {"1 50\n2 51\n3 52\n4 53|NUMBER_OF_SETS 4", "error: the line has 2 values; expected 4"},
         {"1 50 10 -10 2 51 11 -11|NUMBER_OF_SETS 2", right},
         {"1 50 10 -10 2 51 11 -11",
          "error: the line has 8 values; expected 4 (a text with blanks needs quotes)"},
         {"red one 50 10 -10\ntwo 51 11", "error: the line has 5 values"},
         {"1 50 10 -10|NUMBER_OF_SETS 3", "error: NUMBER_OF_SETS is 3, but the data hold 1 sets"},
         {"1 50 10 -10|number_of_fields 5", "error: NUMBER_OF_FIELDS is 5"},
         {"1\t\t50\t10\t-10\n2\t51\t\t11", "error: the line has 3 values; expected 4"}},
        rows);
}

TEST(CgatsVariants, WholeHeadersOfSeveralKinds) {
    auto const first = [](std::string const& text) {
        auto const set = Cxf::ParseSampleSets(text, "t").front();
        auto const& sample = *set->GetSamples()[0];
        auto const conditions = sample.GetSampleAttributes()[0]->GetConditions().GetMeasureConditions();
        return sample.GetName() + "/" + sample.GetId() + ": " + ConditionText(conditions);
    };
    std::string const data = "BEGIN_DATA\nA1\tCyan\t55\t-37\t-50\nEND_DATA\n";
    std::string const fields =
        "BEGIN_DATA_FORMAT\nSampleID\tSAMPLE_NAME\tLAB_L\tLAB_A\tLAB_B\nEND_DATA_FORMAT\n";
    CheckAll({{"CGATS.17\nORIGINATOR\t\"scan\"\nMEASUREMENT_SOURCE\t\"MeasurementCondition=M1\tFilter=no\"\n"
               "ILLUMINATION_NAME\t\"D50\"\nOBSERVER_ANGLE\t\"2\"\n" +
                   fields + data,
               "Cyan/A1: D50, 2°, M1, geometry unknown, backing unknown"},
              {"CGATS.17\nMEASUREMENT_SOURCE\t\"MeasurementCondition=M1\"\nILLUMINATION_NAME\t\"D50\"\n"
               "OBSERVER_ANGLE\t\"2\"\n" +
                   fields + data,
               "Cyan/A1: D50, 2°, M1, geometry unknown, backing unknown"},
              {"CTI3\nDESCRIPTOR \"state\"\nKEYWORD \"DEVICE_CLASS\"\nDEVICE_CLASS \"DISPLAY\"\nKEYWORD "
               "\"NORMALIZED_TO_Y_100\"\nNORMALIZED_TO_Y_100 \"YES\"\n" +
                   fields + data,
               "Cyan/A1: emission, 2° (assumed), filter unknown, geometry unknown, backing unknown"},
              {"ISO28178\r\nWEIGHTING_FUNCTION \"ILLUMINANT, D50\"\r\nWEIGHTING_FUNCTION \"OBSERVER, 2 "
               "degree\"\r\n"
               "MEASUREMENT_GEOMETRY \"45/0\"\r\nSAMPLE_BACKING \"white\"\r\nFILTER \"UV-cut\"\r\n" +
                   fields + data,
               "Cyan/A1: D50, 2°, M2, 45:0, white backing"}},
             first);
}

TEST(CgatsVariants, SpellingsOfTheDataFile) {
    std::map<std::string, std::pair<std::function<std::string(std::string const&)>, std::vector<Variant>>>
        sections;
    for (auto const& [name, describe] : {std::pair{"[viewing]", &Viewing},
                                         {"[measurement]", &Measurement},
                                         {"[bands]", &Bands},
                                         {"[colours]", &Colours}})
        sections[name].first = describe;
    std::ifstream file(TEST_DATA "foreign/variants.txt");
    std::string section;
    std::size_t count = 0;
    for (std::string line; std::getline(file, line);) {
        auto const arrow = line.find(" => ");
        if (line.starts_with("[")) section = line;
        if (arrow == std::string::npos || line.starts_with("#")) continue;
        ASSERT_TRUE(sections.contains(section)) << line;
        sections[section].second.push_back({Unescaped(line.substr(0, arrow)), line.substr(arrow + 4)});
        ++count;
    }
    EXPECT_GE(count, 200U);
    for (auto const& [name, cases] : sections) CheckAll(cases.second, cases.first);
}
