#pragma once

#include <QAccessible>
#include <cstddef>
#include <deque>
#include <map>

namespace GUI {

/// The parts of one widget that assistive technology has asked for: only those it asked for last exist, so
/// that a million cells don't become a million objects.
template <class Key> class CNorvelianAccessibleParts {
public:
    /// So many exist at once; a screen has fewer.
    static constexpr std::size_t most = 2048;

    CNorvelianAccessibleParts() = default;
    CNorvelianAccessibleParts(CNorvelianAccessibleParts const&) = delete;
    CNorvelianAccessibleParts& operator=(CNorvelianAccessibleParts const&) = delete;
    ~CNorvelianAccessibleParts() { Clear(); }

    template <class Make> QAccessibleInterface* Get(Key const& key, Make make) {
        if (auto const found = ids_.find(key); found != ids_.end())
            return QAccessible::accessibleInterface(found->second);
        if (ids_.size() >= most) {
            auto const last = ids_.find(oldest_.front());
            oldest_.pop_front();
            QAccessible::deleteAccessibleInterface(last->second);
            ids_.erase(last);
        }
        QAccessibleInterface* const part = make();
        ids_[key] = QAccessible::registerAccessibleInterface(part);
        oldest_.push_back(key);
        return part;
    }
    void Clear() {
        for (auto const& [key, id] : ids_) QAccessible::deleteAccessibleInterface(id);
        ids_.clear();
        oldest_.clear();
    }

private:
    std::map<Key, QAccessible::Id> ids_;
    std::deque<Key> oldest_;
};

/// Makes widgets of a class known to Qt, by an interface that is made for each, for as long as the module is
/// loaded.
template <class Widget, class Interface> void InstallAccessible() {
    static constexpr auto make = [](QString const& /*className*/, QObject* object) -> QAccessibleInterface* {
        auto* const widget = dynamic_cast<Widget*>(object);
        return widget ? new Interface(*widget) : nullptr;
    };
    struct Installed {
        Installed() { QAccessible::installFactory(make); }
        ~Installed() { QAccessible::removeFactory(make); }
        Installed(Installed const&) = delete;
        Installed& operator=(Installed const&) = delete;
    };
    static Installed const installed;
}

} // namespace GUI
