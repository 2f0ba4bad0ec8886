// Small drawing helpers shared by the table's painters: labels sized in
// layout units, checks, dice and the Field's numbers.
#pragma once

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <string>

class QPainter;
struct Game;
struct LayoutColors;

inline const QColor kFeltLine(244, 238, 222);

// Text in a rectangle, in a bold face of `size` layout units.
void DrawLabel(QPainter& p, const QRectF& r, const QString& text, double size, int align,
               const QColor& color = kFeltLine);
void DrawLabel(QPainter& p, const QRectF& r, const char* text, double size, int align,
               const QColor& color = kFeltLine);
void DrawLabel(QPainter& p, const QRectF& r, const std::string& text, double size, int align,
               const QColor& color = kFeltLine);
// One check of denomination kind (1..5) or the overflow mark (6), centred at c.
void DrawCheck(QPainter& p, QPointF c, int kind, double radius = 11.0);
// One die showing `face`, centred at c, `size` units wide.
void DrawDie(QPainter& p, QPointF c, int face, double size = 24.0, double angle = 0);
// The Field: its title and the numbers it pays, with their payoffs from FieldPayoff.
void PaintField(QPainter& p, const Game& g, const QRectF& r, const LayoutColors& colors);
// The fixed things of the rail: tools, the stick person, the seats' plates.
void PaintRailFixtures(QPainter& p, const Game& g);
