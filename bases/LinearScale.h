#pragma once
// A straight graduated scale read by a pointer (a spring balance, a measuring cylinder,
// a U-tube's board): its ticks and numbers laid along it as numbered series, and what a
// pointer's travel along it reads.
#include <QMap>
#include <QPointF>
#include <QString>
#include <functional>

class CAttribute;
class CSVGBase;
class QJsonArray;
class QSvgNode;

namespace LinearScale {

// Ticks line_1 … line_count: line_k starts k − 1 pitches from `zero` and runs along
// `across` for its length: long at every longEvery-th tick, medium at every
// mediumEvery-th, short otherwise.
struct Ticks {
    QPointF zero;
    QPointF pitch;
    QPointF across{1, 0};
    int count = 2;
    double shortLength = 4, mediumLength = 6, longLength = 8;
    int mediumEvery = 5, longEvery = 10;

    QPointF start(int index) const { return zero + pitch * index; }
    double length(int index) const;
};
// Makes the series line_k exactly as described; the template holds line_1.
void layTicks(CSVGBase &obj, const Ticks &ticks);
// Numbers text_i at the tick indices first, first + every, … up to the last tick, each at
// `offset` from its tick's start and reading text(i); the template holds the first.
void layNumbers(CSVGBase &obj, const Ticks &ticks, int first, int every, QPointF offset,
                const std::function<QString(int)> &text);

// What a pointer's travel along the scale reads: travel 0..length stands for 0..full
// (and 0..-length for 0..-full when bothWays), written in steps of full / steps.
struct Reading {
    double length = 1;
    double full = 1;
    int steps = 1;
    int decimals = 1;  // digits after the point; -1: none when whole, one otherwise
    bool bothWays = false;

    // The nearest step to a travel, halves up, held to the scale.
    int stepAt(double travel) const;
    double travelOf(int step) const { return step * length / steps; }
    double valueOf(int step) const { return step * full / steps; }
    QString text(int step) const;
    // The nearest step to a value, held to the scale.
    int stepOf(double value) const;
    // The step a typed value asks for: a decimal held to the scale, at its nearest step.
    // False for text that is no number.
    bool typed(const QString &text, int &step) const;
    // Where a drag comes to rest: the nearest step; but a move that starts on a step and
    // would come back to it goes one step on in its direction, so that an arrow key's
    // nudge always moves the pointer.
    int settle(double travel, double moved) const;
};

// The handle (control_1) that sets a pointer's travel along a vertical scale, counted
// from zeroY down the page (a balance's hook, a gauge's surface) or up it (a meniscus).
struct PointerHandle {
    double zeroY;
    double dir = 1;  // 1: travel counts downwards; -1: upwards

    double travel(const CSVGBase &obj) const;
    // Moves the handle to that travel, as a typed value does.
    void moveTo(CSVGBase &obj, double travel, bool &guard) const;
    // Puts the handle's centre at that travel, outside the edit path (a range change).
    void place(QSvgNode *handle, double travel) const;
    // At the end of a drag: the handle comes to rest on the step it reads (Reading::settle).
    void settle(QSvgNode *handle, const Reading &reading, QPointF moved) const;
    // A value typed under `key`, taken to its nearest step; false when none was typed.
    bool typed(CSVGBase &obj, const QMap<QString, QString> &values, const QString &key, const Reading &reading,
               bool &guard) const;
};

// An instrument with three ranges: the choices "IDS_SVG_PHYSICAL_RANGE_0" … "_2", and
// the "idRange" combo box, which redraws the panel after a choice because the reading's
// bounds follow the range.
QByteArray rangeChoices();
void appendRange(CAttribute &obj, QJsonArray &array, int rangeAttr);

} // namespace LinearScale
