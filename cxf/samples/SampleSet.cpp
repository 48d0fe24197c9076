#include "cxf/samples/SampleSet.h"

#include "cxf/conditions/TristimException.h"

#include <algorithm>

namespace Norvelian::ColorExchangeFormat {

using Tristim::TristimException;

namespace {

std::string CleanName(std::string name) {
    for (char& c : name)
        if (static_cast<unsigned char>(c) < ' ' || c == 0x7f) c = ' ';
    auto const begin = name.find_first_not_of(' ');
    if (begin == std::string::npos) return {};
    return name.substr(begin, name.find_last_not_of(' ') - begin + 1);
}

} // namespace

Sample::Sample(std::string name, std::string description)
    : name_(std::move(name)), description_(std::move(description)) {}

Sample::~Sample() = default;

void Sample::SetDescription(std::string const& description) {
    if (description == description_) return;
    description_ = description;
    if (set_) set_->Notify(SampleSet::Change::Description, *this);
}

std::string Sample::RenameSample(std::string const& name) {
    std::string wanted = CleanName(name);
    if (wanted.empty() || wanted == name_) return name_;
    if (set_) wanted = set_->UniqueName(wanted, this);
    if (wanted == name_) return name_;
    name_ = wanted;
    if (set_) set_->Notify(SampleSet::Change::Name, *this);
    return name_;
}

Sample::AttributePointer Sample::GetSampleAttribute(std::string const& type, Conditions const& conditions,
                                                    bool exact) const {
    for (AttributePointer const& attribute : attributes_) {
        if (attribute->GetType() != type) continue;
        Conditions const& held = attribute->GetConditions();
        if (exact ? held == conditions : conditions.IsPartOf(held)) return attribute;
    }
    return {};
}

void Sample::AddSampleAttribute(AttributePointer attribute) {
    if (attribute.IsNull()) throw TristimException("a sample attribute is null");
    attributes_.push_back(std::move(attribute));
    if (set_) set_->Notify(SampleSet::Change::Attribute, *this);
}

void Sample::RemoveSampleAttribute(std::size_t index) {
    if (index >= attributes_.size())
        throw TristimException("sample \"" + name_ + "\" has no attribute " + std::to_string(index));
    attributes_.erase(attributes_.begin() + static_cast<std::ptrdiff_t>(index));
    if (set_) set_->Notify(SampleSet::Change::Attribute, *this);
}

SampleSet::~SampleSet() {
    for (SamplePointer const& sample : samples_) sample->set_ = nullptr;
}

SampleSet::SamplePointer SampleSet::FindSample(std::string const& name) const {
    for (SamplePointer const& sample : samples_)
        if (sample->name_ == name) return sample;
    return {};
}

void SampleSet::AddSample(SamplePointer sample) {
    if (sample.IsNull()) throw TristimException("a sample is null");
    if (sample->set_) throw TristimException("sample \"" + sample->name_ + "\" belongs to a set already");
    sample->set_ = this;
    samples_.push_back(sample);
    Notify(Change::Added, *sample);
}

bool SampleSet::RemoveSample(Sample const& sample) {
    auto const found = std::find_if(samples_.begin(), samples_.end(),
                                    [&sample](SamplePointer const& one) { return one.Get() == &sample; });
    if (found == samples_.end()) return false;
    SamplePointer const removed = *found;
    samples_.erase(found);
    removed->set_ = nullptr;
    Notify(Change::Removed, *removed);
    return true;
}

std::string SampleSet::UniqueName(std::string const& name, Sample const* self) const {
    auto const taken = [this, self](std::string const& candidate) {
        return std::any_of(samples_.begin(), samples_.end(), [&](SamplePointer const& one) {
            return one.Get() != self && one->name_ == candidate;
        });
    };
    std::string candidate = name;
    for (unsigned long number = 2; taken(candidate); ++number)
        candidate = name + " (" + std::to_string(number) + ")";
    return candidate;
}

std::string SampleSet::GetProperty(std::string const& key) const {
    for (auto const& [name, value] : properties_)
        if (name == key) return value;
    return {};
}

std::size_t SampleSet::AddObserver(Observer observer) {
    observers_.emplace_back(nextObserver_, std::move(observer));
    return nextObserver_++;
}

void SampleSet::RemoveObserver(std::size_t number) {
    std::erase_if(observers_, [number](auto const& entry) { return entry.first == number; });
}

void SampleSet::Notify(Change change, Sample const& sample) {
    // Observers come and go while they are called: the list of numbers stays, and each is looked up.
    std::vector<std::size_t> numbers;
    numbers.reserve(observers_.size());
    for (auto const& entry : observers_) numbers.push_back(entry.first);
    for (std::size_t const number : numbers) {
        auto const found = std::find_if(observers_.begin(), observers_.end(),
                                        [number](auto const& entry) { return entry.first == number; });
        if (found == observers_.end()) continue;
        Observer const observer = found->second;
        observer(change, sample);
    }
}

} // namespace Norvelian::ColorExchangeFormat
