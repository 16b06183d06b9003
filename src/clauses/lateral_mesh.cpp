#include "clauses/lateral_mesh.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

constexpr double kSame = 1e-9;     // places closer than this are one
constexpr double kCoarse = 0.05;   // longest element
constexpr double kPerSegment = 6;  // elements between two restraints, at the least
constexpr double kGrowth = 2.5;    // of elements away from a place where warping is disturbed
constexpr std::size_t kMaxBreaks = 96;

struct Break {
    double x;
    bool disturbs;  // warping is restrained or a torque enters
};

struct Breaks {
    std::array<Break, kMaxBreaks> at;
    std::size_t count = 0;

    void Add(double x, bool disturbs)
    {
        if (count < kMaxBreaks && x > -kSame && x < 1 + kSame) {
            at[count++] = {std::clamp(x, 0.0, 1.0), disturbs};
        }
    }
    void Settle();
};

void Breaks::Settle()
{
    const auto begin = at.begin();
    const auto end = begin + static_cast<std::ptrdiff_t>(count);
    std::sort(begin, end, [](const Break& a, const Break& b) { return a.x < b.x; });
    std::size_t kept = 0;
    for (std::size_t i = 1; i < count; ++i) {
        if (at[i].x - at[kept].x < kSame) {
            at[kept].disturbs = at[kept].disturbs || at[i].disturbs;
        } else {
            at[++kept] = at[i];
        }
    }
    count = kept + 1;
}

double ValueAt(const MomentPiece& piece, double x)
{
    const double s = x - piece.x0;
    return piece.m[0] + s * (piece.m[1] + s * (piece.m[2] + s * piece.m[3]));
}

Breaks BreaksOf(const LateralSupports& supports, const MomentLine& line)
{
    Breaks breaks;
    breaks.Add(0, true);
    breaks.Add(1, true);
    for (const double x : supports.held) {
        breaks.Add(x / line.length, true);
    }
    for (const PointTorque& point : line.points) {
        breaks.Add(point.x / line.length, true);
    }
    double before = 0;
    double largest = 0;
    for (const MomentPiece& piece : line.pieces) {
        largest = std::max({largest, std::abs(piece.m[0]), std::abs(ValueAt(piece, piece.x1))});
    }
    for (const MomentPiece& piece : line.pieces) {  // jumps first: they must have their place
        if (piece.x0 > 0 && std::abs(piece.m[0] - before) > kSame * largest) {
            breaks.Add(piece.x0 / line.length, true);
        }
        before = ValueAt(piece, piece.x1);
    }
    if (line.pieces.size() < kMaxBreaks / 2) {
        for (const MomentPiece& piece : line.pieces) {
            breaks.Add(piece.x0 / line.length, false);
        }
    }
    breaks.Settle();
    return breaks;
}

// The largest element next to `x`: a part of the distance between its neighbours that hold v.
double LargestElement(const LateralSupports& supports, double length, double x)
{
    double left = 0;
    double right = 1;
    for (const double at : supports.held) {
        if (at / length <= x) {
            left = at / length;
        } else {
            right = std::min(right, at / length);
        }
    }
    return std::min(kCoarse, (right - left) / kPerSegment);
}

// Element lengths from one end of an interval towards its middle: short ones where warping dies
// away.
class Grading {
public:
    Grading(double layer, double coarse, bool disturbed)
        : size_(disturbed && layer > 0 ? std::min(layer, coarse) : coarse), coarse_(coarse)
    {
    }
    double Next()
    {
        const double size = size_;
        size_ = std::min(coarse_, size_ * kGrowth);
        return size;
    }
    double Size() const { return size_; }

private:
    double size_, coarse_;
};

void AddNode(LateralMesh& mesh, double x)
{
    if (mesh.elements < kMaxElements) {
        mesh.x[++mesh.elements] = x;
    }
}

// Grows elements from both ends of the interval until they meet, then splits the rest evenly.
void FillInterval(LateralMesh& mesh, const Break& from, const Break& to, double layer,
                  double coarse)
{
    Grading left(layer, coarse, from.disturbs);
    Grading right(layer, coarse, to.disturbs);
    std::array<double, kMaxElements> tail;
    std::size_t tails = 0;
    double a = from.x;
    double b = to.x;
    while ((left.Size() < coarse || right.Size() < coarse) &&
           b - a > 2 * (left.Size() + right.Size()) && tails < 24) {
        a += left.Next();
        AddNode(mesh, a);
        tail[tails++] = b;
        b -= right.Next();
    }
    const double middle = std::max(1.0, std::ceil((b - a) / coarse - kSame));
    for (double i = 1; i <= middle; ++i) {
        AddNode(mesh, a + (b - a) * i / middle);
    }
    while (tails > 0) {
        AddNode(mesh, tail[--tails]);
    }
}

}  // namespace

LateralMesh MeshOf(const LateralSupports& supports, const MomentLine& line, double layer)
{
    const Breaks breaks = BreaksOf(supports, line);
    LateralMesh mesh{};
    constexpr double kThinnest = 1e-5;  // a thinner layer changes nothing that can be seen
    const double graded = layer > 0 ? std::max(layer, kThinnest) : 0;
    double wider = 1;
    do {
        mesh.elements = 0;
        for (std::size_t i = 0; i + 1 < breaks.count; ++i) {
            const double coarse =
                wider * LargestElement(supports, line.length, breaks.at[i].x + kSame);
            FillInterval(mesh, breaks.at[i], breaks.at[i + 1], wider > 1 ? 0 : graded, coarse);
        }
        wider *= 2;  // more breaks than elements: leave the refinement out
    } while (mesh.elements == kMaxElements && wider < 100);
    return mesh;
}

}  // namespace kestrum
