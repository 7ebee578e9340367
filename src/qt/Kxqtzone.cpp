#include <kxgraph/qt/Kxqtzone.h>

#include <QByteArray>
#include <QDateTime>
#include <QTimeZone>

#include <cmath>

namespace kx::qt {

std::function<double(double Moment)> ZoneOffset(const std::string& Name) {
    const QTimeZone zone(QByteArray::fromStdString(Name));
    if (!zone.isValid()) return {};
    return [zone](double Moment) {
        const auto milliseconds = static_cast<qint64>(std::floor(Moment)) * 1000;
        return double(zone.offsetFromUtc(QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC)));
    };
}

} // namespace kx::qt
