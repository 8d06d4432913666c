/// Matrices and quaternions one at a time, as transforms of layers are put together and animated.
#include <Eigen/Dense>
#include <Eigen/Geometry>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <glm/glm.hpp>
#include <glm/gtc/quaternion.hpp>
#include <glm/gtc/type_ptr.hpp>
#include <memory>
#include <vector>

#include "bench/BenchData.h"
#include "bench/PeerReport.h"
#include "quorin/linear/Quaternion.h"

namespace {

using namespace quorin;
using namespace quorin::bench;

/// Few enough that all of it stays in the processor's nearest cache.
constexpr std::size_t count = 64;

Matrix4 randomMatrix(FixedNumbers& numbers) {
    std::array<CGFloat, 16> elements{};
    for (CGFloat& element : elements)
        element = numbers.between(-1, 1);
    return Matrix4(elements);
}

Vector4 randomVector(FixedNumbers& numbers) {
    return {numbers.between(-1, 1), numbers.between(-1, 1), numbers.between(-1, 1),
            numbers.between(-1, 1)};
}

Quaternion randomRotation(FixedNumbers& numbers) {
    const Vector4 v = randomVector(numbers).normalized();
    // The peers take the shorter arc; where all w are large, that is the arc we take as well.
    return Quaternion{v.x, v.y, v.z, 2 + v.w}.normalized();
}

struct Own {
    std::vector<Matrix4> a, b, affine;
    std::vector<Vector3> places;
    std::vector<Vector4> vectors;
    std::vector<Quaternion> from, to;
    std::vector<CGFloat> times;

    Own() {
        FixedNumbers numbers(11);
        for (std::size_t i = 0; i < count; ++i) {
            a.push_back(randomMatrix(numbers));
            b.push_back(randomMatrix(numbers));
            affine.push_back(a.back());
            affine.back().m14 = affine.back().m24 = affine.back().m34 = 0;
            affine.back().m44 = 1;
            vectors.push_back(randomVector(numbers));
            places.push_back(vectors.back().xyz());
            from.push_back(randomRotation(numbers));
            to.push_back(randomRotation(numbers));
            times.push_back(numbers.between(0, 1));
        }
    }
};

/// `convert` done to all of a list.
template <typename Value, typename Convert>
auto each(const std::vector<Value>& values, Convert convert) {
    std::vector<decltype(convert(values.front()))> converted;
    for (const Value& value : values)
        converted.push_back(convert(value));
    return converted;
}

Eigen::Matrix4d eigenMatrix(const Matrix4& m) { return Eigen::Matrix4d(m.array().data()); }
Eigen::Affine3d eigenAffine(const Matrix4& m) { return Eigen::Affine3d(eigenMatrix(m)); }
Eigen::Vector3d eigenPlace(const Vector3& v) { return {v.x, v.y, v.z}; }
Eigen::Vector4d eigenVector(const Vector4& v) { return {v.x, v.y, v.z, v.w}; }
Eigen::Quaterniond eigenRotation(const Quaternion& q) { return {q.w, q.x, q.y, q.z}; }

struct InEigen {
    std::vector<Eigen::Matrix4d> a, b;
    std::vector<Eigen::Affine3d> affine;
    std::vector<Eigen::Vector3d> places;
    std::vector<Eigen::Vector4d> vectors;
    std::vector<Eigen::Quaterniond> from, to;

    explicit InEigen(const Own& own)
        : a(each(own.a, eigenMatrix)),
          b(each(own.b, eigenMatrix)),
          affine(each(own.affine, eigenAffine)),
          places(each(own.places, eigenPlace)),
          vectors(each(own.vectors, eigenVector)),
          from(each(own.from, eigenRotation)),
          to(each(own.to, eigenRotation)) {}
};

glm::dmat4 glmMatrix(const Matrix4& m) { return glm::make_mat4(m.array().data()); }
glm::dvec3 glmPlace(const Vector3& v) { return {v.x, v.y, v.z}; }
glm::dvec4 glmVector(const Vector4& v) { return {v.x, v.y, v.z, v.w}; }
glm::dquat glmRotation(const Quaternion& q) { return {q.w, q.x, q.y, q.z}; }

struct InGlm {
    std::vector<glm::dmat4> a, b, affine;
    std::vector<glm::dvec3> places;
    std::vector<glm::dvec4> vectors;
    std::vector<glm::dquat> from, to;

    explicit InGlm(const Own& own)
        : a(each(own.a, glmMatrix)),
          b(each(own.b, glmMatrix)),
          affine(each(own.affine, glmMatrix)),
          places(each(own.places, glmPlace)),
          vectors(each(own.vectors, glmVector)),
          from(each(own.from, glmRotation)),
          to(each(own.to, glmRotation)) {}
};

/// Does `work(i)` for each piece of the data, and keeps all results so that none is left out.
template <typename Work>
auto resultsOf(Work work) {
    std::vector<decltype(work(0))> results(count);
    for (std::size_t i = 0; i < count; ++i)
        results[i] = work(i);
    return results;
}

/// The results as plain numbers; every library stores them in the same order.
template <typename Result>
std::vector<double> numbersOf(const std::vector<Result>& results) {
    static_assert(sizeof(Result) % sizeof(double) == 0);
    std::vector<double> numbers(results.size() * sizeof(Result) / sizeof(double));
    std::memcpy(numbers.data(), results.data(), numbers.size() * sizeof(double));
    return numbers;
}

class Comparison {
public:
    template <typename Work>
    Comparison(const std::string& nameOfWork, Work work)
        : name(nameOfWork), expected(numbersOf(resultsOf(work))) {
        add(ours, work);
    }

    template <typename Work>
    Comparison& with(const std::string& library, Work work) {
        const std::vector<double> numbers = numbersOf(resultsOf(work));
        for (std::size_t i = 0; i < expected.size(); ++i)
            if (!(std::abs(numbers.at(i) - expected[i]) <= 1e-9 * (1 + std::abs(expected[i])))) {
                std::fprintf(stderr, "%s: %s has %.17g and we %.17g\n", name.c_str(),
                             library.c_str(), numbers[i], expected[i]);
                std::exit(1);
            }
        add(library, work);
        return *this;
    }

private:
    template <typename Work>
    void add(const std::string& library, Work work) {
        const auto results = std::make_shared<std::vector<decltype(work(0))>>(count);
        compare(name, library, count, [work, results] {
            auto* const result = results->data();
            for (std::size_t i = 0; i < count; ++i)
                result[i] = work(i);
            benchmark::DoNotOptimize(result);
            benchmark::ClobberMemory();
        });
    }

    std::string name;
    std::vector<double> expected;
};

using Index = std::size_t;

void registerMatrices(const Own& o, const InEigen& e, const InGlm& g) {
    Comparison("4x4 product", [&](Index i) {
        return o.a[i] * o.b[i];
    }).with("Eigen", [&](Index i) -> Eigen::Matrix4d {
          return e.a[i] * e.b[i];
      }).with("GLM", [&](Index i) { return g.a[i] * g.b[i]; });
    Comparison("4x4 inverse", [&](Index i) {
        return o.a[i].inverse();
    }).with("Eigen", [&](Index i) -> Eigen::Matrix4d {
          return e.a[i].inverse();
      }).with("GLM", [&](Index i) { return glm::inverse(g.a[i]); });
    Comparison("4x4 determinant", [&](Index i) {
        return o.a[i].determinant();
    }).with("Eigen", [&](Index i) {
          return e.a[i].determinant();
      }).with("GLM", [&](Index i) { return glm::determinant(g.a[i]); });
    Comparison("4x4 by a vector", [&](Index i) {
        return o.a[0] * o.vectors[i];
    }).with("Eigen", [&](Index i) -> Eigen::Vector4d {
          return e.a[0] * e.vectors[i];
      }).with("GLM", [&](Index i) { return g.a[0] * g.vectors[i]; });
    Comparison("4x4 by a point", [&](Index i) {
        return o.affine[0] * o.places[i];
    }).with("Eigen", [&](Index i) -> Eigen::Vector3d {
          return e.affine[0] * e.places[i];
      }).with("GLM", [&](Index i) {
        return glm::dvec3(g.affine[0] * glm::dvec4(g.places[i], 1.0));
    });
    Comparison("4x4 by a point, a matrix each", [&](Index i) {
        return o.affine[i] * o.places[i];
    }).with("Eigen", [&](Index i) -> Eigen::Vector3d {
          return e.affine[i] * e.places[i];
      }).with("GLM", [&](Index i) {
        return glm::dvec3(g.affine[i] * glm::dvec4(g.places[i], 1.0));
    });
}

void registerQuaternions(const Own& o, const InEigen& e, const InGlm& g) {
    Comparison("quaternion interpolation", [&](Index i) {
        return o.from[i].interpolated(o.to[i], o.times[i]);
    }).with("Eigen", [&](Index i) {
          return e.from[i].slerp(o.times[i], e.to[i]);
      }).with("GLM", [&](Index i) { return glm::slerp(g.from[i], g.to[i], o.times[i]); });
    Comparison("quaternion product", [&](Index i) {
        return o.from[i] * o.to[i];
    }).with("Eigen", [&](Index i) {
          return e.from[i] * e.to[i];
      }).with("GLM", [&](Index i) { return g.from[i] * g.to[i]; });
    Comparison("vector by a quaternion", [&](Index i) {
        return o.from[i] * o.places[i];
    }).with("Eigen", [&](Index i) -> Eigen::Vector3d {
          return e.from[i] * e.places[i];
      }).with("GLM", [&](Index i) { return g.from[i] * g.places[i]; });
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const Own own;
    const InEigen inEigen(own);
    const InGlm inGlm(own);
    registerMatrices(own, inEigen, inGlm);
    registerQuaternions(own, inEigen, inGlm);
    return runComparison(argumentCount, arguments);
}
