#pragma once

/// Names of the XML form beside the object names of the vocabulary.
namespace Norvelian::ColorExchangeFormat::Xml {

inline constexpr char const* Version = "Version";
inline constexpr char const* VersionValue = "1";
inline constexpr char const* Name = "Name";
inline constexpr char const* Description = "Description";
inline constexpr char const* Id = "Id";
inline constexpr char const* Property = "Property";
inline constexpr char const* Value = "Value";
inline constexpr char const* First = "First";
inline constexpr char const* Step = "Step";
inline constexpr char const* Extrapolate = "Extrapolate";
inline constexpr char const* Scale = "Scale";
inline constexpr char const* Assumed = "Assumed";
inline constexpr char const* Yes = "Yes";
inline constexpr char const* No = "No";
inline constexpr char const* Conditions = "Conditions";
inline constexpr char const* Condition = "Condition";
inline constexpr char const* Values = "Values";
inline constexpr char const* Ingredient = "Ingredient";
inline constexpr char const* Amount = "Amount";
inline constexpr char const* Unit = "Unit";

} // namespace Norvelian::ColorExchangeFormat::Xml
