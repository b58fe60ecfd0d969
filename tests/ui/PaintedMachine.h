// Pictures of a machine, and what they have in common.
#pragma once
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <functional>

#include "tests/game/FakePorts.h"
#include "ui/art/PictureStore.h"
#include "ui/machine/Layout.h"
#include "ui/machine/MachineFit.h"
#include "ui/machine/MachinePainter.h"
#include "ui/machine/Moment.h"

inline constexpr QSize kClient{640, 480};
inline constexpr QRgb kUntouched = 0xffff00ff;

inline MachineLayout LayoutOf(const TestSeat& t, QSize client = kClient) {
    return *LayOut(MachineFit::Into(client).table, ShapeOf(t.engine.payTable), QtTextMeasure());
}

// The scene in a picture that is larger than the client by a margin on the right and below.
struct Canvas {
    explicit Canvas(double ratio, QSize client = kClient)
        : image((client + QSize(10, 10)) * ratio, QImage::Format_RGB32) {
        image.setDevicePixelRatio(ratio);
        image.fill(kUntouched);
    }

    void Paint(const TestSeat& t, const Scene& scene, const QRegion& clip, QSize client = kClient,
               const CardStyle& style = {}, const Moment& moment = {}) {
        // It outlives the application, so that it may not be destroyed.
        static PictureStore& pictures = *new PictureStore;
        QPainter painter(&image);
        PaintMachine(painter, clip, scene, MachineFit::Into(client), LayoutOf(t, client),
                     t.engine.payTable, t.engine.deck.table, pictures, style, moment);
    }

    QImage image;
};

inline QImage Painted(const TestSeat& t, const Scene& scene, double ratio = 1,
                      QSize client = kClient, const CardStyle& style = {}) {
    Canvas canvas(ratio, client);
    canvas.Paint(t, scene, QRect(QPoint(0, 0), client), client, style);
    return canvas.image;
}

// Everything that differs, in client coordinates; null when nothing does.
inline QRect Difference(const QImage& one, const QImage& other) {
    QRect differing;
    if (one == other) return differing;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (one.pixel(x, y) != other.pixel(x, y)) differing |= QRect(x, y, 1, 1);
        }
    }
    return differing;
}

inline int CountIn(const QImage& image, const QRect& place,
                   const std::function<bool(QColor)>& wanted) {
    int count = 0;
    for (int i = 0; i < place.width() * place.height(); ++i) {
        const QPoint offset(i % place.width(), i / place.width());
        if (wanted(image.pixelColor(place.topLeft() + offset))) ++count;
    }
    return count;
}

inline void PlayToAWin(TestSeat& t) {
    t.Deal("JS JD TC 9H 2S JC 4C 5C");
    t.Draw(0b11000);
}
