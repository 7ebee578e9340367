#pragma once
// What the examples with windows share: they end by themselves, and save what they show, when they are asked
// to.

#include <QApplication>
#include <QPixmap>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <stdexcept>
#include <string>
#include <string_view>

/// PROGRAM [--seconds N] [--save FILE.png]
struct TWindowOptions {
    double Seconds = 0; ///< after which the window closes; 0: when the user closes it
    std::string Save;   ///< what it shows then; empty: nothing

    TWindowOptions(int Count, char** Arguments) {
        for (int i = 1; i < Count; i += 2) {
            const std::string_view option = Arguments[i];
            if (i + 1 == Count || (option != "--seconds" && option != "--save"))
                throw std::invalid_argument("usage: [--seconds N] [--save FILE.png]");
            if (option == "--seconds")
                Seconds = std::stod(Arguments[i + 1]);
            else
                Save = Arguments[i + 1];
        }
    }

    /// Shows Window until it is closed; returns the exit status.
    int Run(QWidget& Window) const {
        bool saved = true;
        QTimer end;
        end.setSingleShot(true);
        QObject::connect(&end, &QTimer::timeout, &Window, [&] {
            saved = Save.empty() || Window.grab().save(QString::fromStdString(Save));
            Window.close();
        });
        Window.show();
        if (Seconds > 0) end.start(int(1000 * Seconds));
        const int status = QApplication::exec();
        return saved ? status : 1;
    }
};
