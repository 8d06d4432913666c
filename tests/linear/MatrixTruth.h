#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

#include "quorin/linear/Matrix3.h"
#include "quorin/linear/Matrix4.h"
#include "tests/TestSupport.h"

/// Matrices once more, in rows of more precision and by elimination, to compare with.
namespace quorin::test {

template <std::size_t n>
using Rows = std::array<std::array<long double, n>, n>;

/// As on paper: the element in row J and column I is mIJ.
template <std::size_t n, std::size_t count>
Rows<n> rowsOf(const std::array<CGFloat, count>& elements) {
    static_assert(count == n * n);
    Rows<n> rows;
    for (std::size_t column = 0; column < n; ++column)
        for (std::size_t row = 0; row < n; ++row)
            rows[row][column] = elements[column * n + row];
    return rows;
}
inline Rows<3> rowsOf(const Matrix3& m) { return rowsOf<3>(m.array()); }
inline Rows<4> rowsOf(const Matrix4& m) { return rowsOf<4>(m.array()); }

template <std::size_t n>
Rows<n> product(const Rows<n>& a, const Rows<n>& b) {
    Rows<n> result{};
    for (std::size_t row = 0; row < n; ++row)
        for (std::size_t column = 0; column < n; ++column)
            for (std::size_t k = 0; k < n; ++k)
                result[row][column] += a[row][k] * b[k][column];
    return result;
}

template <std::size_t n>
Rows<n> diagonal(long double value) {
    Rows<n> result{};
    for (std::size_t i = 0; i < n; ++i)
        result[i][i] = value;
    return result;
}

template <std::size_t n>
struct Elimination {
    long double determinant = 1;
    Rows<n> inverse = diagonal<n>(1);
};

/// Gauss and Jordan's elimination; the matrix must have an inverse.
template <std::size_t n>
Elimination<n> eliminated(Rows<n> m) {
    Elimination<n> result;
    for (std::size_t step = 0; step < n; ++step) {
        std::size_t pivot = step;
        for (std::size_t row = step + 1; row < n; ++row)
            if (std::abs(m[row][step]) > std::abs(m[pivot][step]))
                pivot = row;
        if (pivot != step)
            result.determinant = -result.determinant;
        std::swap(m[step], m[pivot]);
        std::swap(result.inverse[step], result.inverse[pivot]);

        const long double head = m[step][step];
        result.determinant *= head;
        for (std::size_t i = 0; i < n; ++i) {
            m[step][i] /= head;
            result.inverse[step][i] /= head;
        }
        for (std::size_t row = 0; row < n; ++row) {
            const long double factor = m[row][step];
            for (std::size_t i = 0; row != step && i < n; ++i) {
                m[row][i] -= factor * m[step][i];
                result.inverse[row][i] -= factor * result.inverse[step][i];
            }
        }
    }
    return result;
}

template <std::size_t n>
long double largestDifference(const Rows<n>& a, const Rows<n>& b) {
    long double largest = 0;
    for (std::size_t row = 0; row < n; ++row)
        for (std::size_t column = 0; column < n; ++column)
            largest = std::max(largest, std::abs(a[row][column] - b[row][column]));
    return largest;
}

/// Elements of three decimals in [-1, 1].
template <typename Matrix>
rc::Gen<Matrix> fractionalMatrix() {
    using Elements = decltype(Matrix().array());
    const auto element = rc::gen::map(rc::gen::inRange(-1000, 1001), [](int n) { return n / 1e3; });
    return rc::gen::map(rc::gen::container<Elements>(element),
                        [](const Elements& elements) { return Matrix(elements); });
}

/// Elements of three decimals in [-1, 1], and a determinant large enough to divide by.
template <typename Matrix>
rc::Gen<Matrix> invertibleMatrix() {
    return rc::gen::suchThat(rc::gen::resize(rc::kNominalSize, fractionalMatrix<Matrix>()),
                             [](const Matrix& m) { return std::abs(m.determinant()) > 0.1; });
}

/// Elements so small and whole that products, determinants and adjugates come out exactly.
template <typename Matrix>
rc::Gen<Matrix> wholeMatrix() {
    using Elements = decltype(Matrix().array());
    const auto element = rc::gen::map(rc::gen::inRange(-9, 10), [](int n) { return CGFloat(n); });
    return rc::gen::map(rc::gen::container<Elements>(element),
                        [](const Elements& elements) { return Matrix(elements); });
}

}  // namespace quorin::test
