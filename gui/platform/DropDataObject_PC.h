#pragma once

#include "gui/elements/DropDataObject.h"

#include <QMimeData>

namespace GUI {

/// What the platform drags, for as long as one of its events lives.
class DropDataObject_PC : public DropDataObject {
public:
    explicit DropDataObject_PC(QMimeData const& data) : data_(data) {}

    bool HasFormat(Utilities::String const& format) const override;
    Utilities::Anything GetData(Utilities::String const& format) const override;

private:
    QMimeData const& data_;
};

} // namespace GUI
