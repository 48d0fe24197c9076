#pragma once

#include <QImage>
#include <QMimeData>
#include <functional>
#include <map>
#include <string>

namespace GUI {

/// Data of the clipboard or of a drag in several formats, some of which are made when they are asked for.
class GatheredData : public QMimeData {
public:
    GatheredData() { ++living_; }
    GatheredData(GatheredData const&) = delete;
    GatheredData& operator=(GatheredData const&) = delete;
    ~GatheredData() override { --living_; }

    void AddLater(QString const& type, std::function<QByteArray()> const& make) { makers_[type] = make; }
    /// A picture as PNG, as BMP, and as a drawing that holds it.
    void AddPicture(QImage const& image);

    bool hasFormat(QString const& type) const override;
    QStringList formats() const override;

    static long GetLivingCount() { return living_; }

protected:
    QVariant retrieveData(QString const& type, QMetaType preferred) const override;

private:
    static inline long living_ = 0;

    std::map<QString, std::function<QByteArray()>> makers_;
    QImage picture_;
};

} // namespace GUI
