// Recognises strokes from standard input, one JSON object a line:
//     {"id":7,"yUp":true,"points":[x1,y1,x2,y2,…]}
// and answers each with a line of its own, in order:
//     {"id":7,"name":"linea","points":[…]}
// where the name is null when there is no shape. yUp is true unless given. A line
// that cannot be understood is answered with null for its id and reported on
// standard error.

#include "shapes/ShapeRecognizer.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>
#include <iostream>

using ShapeRecognizer::Points;
using ShapeRecognizer::Result;

namespace {

struct Request {
    QJsonValue id;
    bool yUp;
    Points points;
};

std::optional<Points> pointsFrom(const QJsonValue &value)
{
    const QJsonArray numbers = value.toArray();
    if (!value.isArray() || numbers.size() % 2 != 0)
        return std::nullopt;
    Points points;
    for (qsizetype i = 0; i < numbers.size(); i += 2) {
        if (!numbers[i].isDouble() || !numbers[i + 1].isDouble())
            return std::nullopt;
        points.push_back({numbers[i].toDouble(), numbers[i + 1].toDouble()});
    }
    return points;
}

std::optional<Request> requestFrom(const std::string &line)
{
    const QByteArray bytes = QByteArray::fromRawData(line.data(), static_cast<qsizetype>(line.size()));
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    const QJsonValue yUp = document["yUp"];
    std::optional<Points> points = pointsFrom(document["points"]);
    if (!points || !(yUp.isUndefined() || yUp.isBool()))
        return std::nullopt;
    return Request{document["id"], yUp.toBool(true), *std::move(points)};
}

std::string json(const QJsonValue &value)
{
    if (value.isUndefined())
        return "null";
    const std::string list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
    return list.substr(1, list.size() - 2);
}

std::string json(const std::optional<Result> &result)
{
    if (!result)
        return R"("name":null,"points":[])";
    std::string text = "\"name\":\"" + result->name + "\",\"points\":[";
    char buffer[64];
    const char *format = "%.17g,%.17g";
    for (const auto [x, y] : result->points) {
        std::snprintf(buffer, sizeof buffer, format, x, y);
        text += buffer;
        format = ",%.17g,%.17g";
    }
    return text + "]";
}

std::string answer(const std::string &line, long number)
{
    const std::optional<Request> request = requestFrom(line);
    if (!request) {
        std::cerr << "recognize: line " << number << " is not a stroke\n";
        return "{\"id\":null," + json(std::optional<Result>()) + "}";
    }
    return "{\"id\":" + json(request->id) + ','
           + json(ShapeRecognizer::recognize(request->points, request->yUp)) + '}';
}

} // namespace

int main()
{
    std::ios::sync_with_stdio(false);
    std::string line;
    for (long number = 1; std::getline(std::cin, line); ++number)
        std::cout << answer(line, number) << '\n';
    std::cout.flush();
    return std::cout ? 0 : 1;
}
