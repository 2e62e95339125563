// Square matrices of up to 12 rows: inverse and eigenvalues.
#pragma once

#include "orbdefs.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>

namespace orbs::design {

constexpr int mostRows = 12;
constexpr Orb64f epsilon = 2.220446049250313e-16;

struct Matrix {
    int n;
    std::array<std::array<Orb64f, mostRows>, mostRows> rows{};

    explicit Matrix(int size) : n(size) {}
    auto& operator[](int i) { return rows[static_cast<unsigned>(i)]; }
    const auto& operator[](int i) const { return rows[static_cast<unsigned>(i)]; }
};

// Of the elements of a column from a row on: where the largest one stands.
inline int largestInColumn(const Matrix& m, int column, int from) {
    int at = from;
    for (int i = from + 1; i < m.n; ++i)
        if (std::abs(m[i][column]) > std::abs(m[at][column])) at = i;
    return at;
}

// By L U = P A with partial pivoting (Golub and Van Loan, Matrix Computations, 3.4). A singular matrix stays as it is.
inline void invert(Matrix& m) {
    const int n = m.n;
    Matrix lu = m;
    std::array<int, mostRows> origin{}; // of the rows of P A
    for (int i = 0; i < n; ++i) origin[i] = i;
    for (int k = 0; k < n; ++k) {
        const int pivot = largestInColumn(lu, k, k);
        if (!(std::abs(lu[pivot][k]) > epsilon)) return;
        std::swap(lu[k], lu[pivot]);
        std::swap(origin[k], origin[pivot]);
        for (int i = k + 1; i < n; ++i) {
            lu[i][k] /= lu[k][k];
            for (int j = k + 1; j < n; ++j) lu[i][j] -= lu[i][k] * lu[k][j];
        }
    }
    for (int column = 0; column < n; ++column) {
        std::array<Orb64f, mostRows> x{};
        for (int i = 0; i < n; ++i) {
            x[i] = origin[i] == column ? 1 : 0;
            for (int j = 0; j < i; ++j) x[i] -= lu[i][j] * x[j];
        }
        for (int i = n - 1; i >= 0; --i) {
            for (int j = i + 1; j < n; ++j) x[i] -= lu[i][j] * x[j];
            x[i] /= lu[i][i];
            m[i][column] = x[i];
        }
    }
}

// ---- Eigenvalues (Wilkinson and Reinsch, Handbook for Automatic Computation II, contributions II/13 and II/14) ----

// To upper Hessenberg form by elimination, with rows and columns interchanged; below the subdiagonal zeros.
inline void reduceToHessenberg(Matrix& a) {
    const int n = a.n;
    for (int m = 1; m < n - 1; ++m) {
        const int pivot = largestInColumn(a, m - 1, m);
        std::swap(a[m], a[pivot]);
        for (int i = 0; i < n; ++i) std::swap(a[i][m], a[i][pivot]);
        const Orb64f divisor = a[m][m - 1];
        if (!(divisor < 0 || divisor > 0)) continue;
        for (int i = m + 1; i < n; ++i) {
            const Orb64f factor = a[i][m - 1] / divisor;
            a[i][m - 1] = 0;
            if (!(factor < 0 || factor > 0)) continue;
            for (int j = m; j < n; ++j) a[i][j] -= factor * a[m][j];
            for (int k = 0; k < n; ++k) a[k][m] += factor * a[k][i];
        }
    }
}

// The QR iteration with double shifts on an upper Hessenberg matrix, from its lower end upward.
class EigenvaluesOfHessenberg {
public:
    explicit EigenvaluesOfHessenberg(const Matrix& hessenberg) : a_(hessenberg) {
        for (int i = 0; i < a_.n; ++i)
            for (int j = std::max(i - 1, 0); j < a_.n; ++j) norm_ += std::abs(a_[i][j]);
        int last = a_.n - 1, sweeps = 0;
        while (last >= 0) {
            const int first = beginOfBlock(last);
            if (first == last || sweeps == mostSweeps) {
                values_[last] = a_[last][last];
                last -= 1;
                sweeps = 0;
            } else if (first == last - 1) {
                splitPair(last);
                last -= 2;
                sweeps = 0;
            } else {
                sweep(first, last);
                ++sweeps;
            }
        }
    }
    // In the order of the diagonal.
    const std::array<std::complex<Orb64f>, mostRows>& values() const { return values_; }

private:
    // Convergence has no proof. Of eight million designs of all orders none took more than 30 sweeps for a root.
    static constexpr int mostSweeps = 1000;

    // The row in which the block that ends in row `last` begins: above it stands a subdiagonal element that is
    // negligible.
    int beginOfBlock(int last) {
        int row = last;
        for (; row >= 1; --row) {
            Orb64f scale = std::abs(a_[row - 1][row - 1]) + std::abs(a_[row][row]);
            if (scale == 0) scale = norm_;
            if (!(std::abs(a_[row][row - 1]) > std::abs(scale * 100.0 * 5e-16))) break; // a NaN goes no further
        }
        return row;
    }

    // The eigenvalues of the block of two rows that ends in row `last`.
    void splitPair(int last) {
        const Orb64f x = a_[last][last], product = a_[last][last - 1] * a_[last - 1][last];
        const Orb64f p = 0.5 * (a_[last - 1][last - 1] - x), discriminant = p * p + product;
        const Orb64f root = std::sqrt(std::abs(discriminant));
        if (discriminant >= 0) {
            const Orb64f far = p + std::copysign(root, p);
            values_[last - 1] = x + far;
            values_[last] = far != 0 ? x - product / far : x;
        } else {
            values_[last - 1] = {x + p, -root};
            values_[last] = {x + p, root};
        }
    }

    struct Column {
        Orb64f p, q, r;

        Orb64f sum() const { return std::abs(p) + std::abs(q) + std::abs(r); }
        Column over(Orb64f s) const { return {p / s, q / s, r / s}; }
    };

    // The first column of (A - k1)(A - k2) in row m, k1 and k2 being the eigenvalues of the last two rows.
    Column shifted(int m, int last) const {
        const Orb64f x = a_[last][last], y = a_[last - 1][last - 1], w = a_[last][last - 1] * a_[last - 1][last];
        const Orb64f z = a_[m][m], r = x - z, s = y - z;
        const Column column = {(r * s - w) / a_[m + 1][m] + a_[m][m + 1], a_[m + 1][m + 1] - z - r - s,
                               a_[m + 2][m + 1]};
        return column.over(column.sum());
    }

    // The sweep may begin in a row below the first where two subdiagonal elements in a row are small.
    bool mayBeginAt(int m, const Column& c) const {
        const Orb64f u = std::abs(a_[m][m - 1]) * (std::abs(c.q) + std::abs(c.r));
        const Orb64f v = std::abs(c.p) * (std::abs(a_[m - 1][m - 1]) + std::abs(a_[m][m]) + std::abs(a_[m + 1][m + 1]));
        return u + v == v;
    }

    void sweep(int first, int last) {
        int begin = last - 2;
        Column column = shifted(begin, last);
        while (begin > first && !mayBeginAt(begin, column)) column = shifted(--begin, last);
        for (int i = begin + 2; i <= last; ++i) {
            a_[i][i - 2] = 0;
            if (i > begin + 2) a_[i][i - 3] = 0;
        }
        for (int k = begin; k < last; ++k) {
            const bool hasThree = k < last - 1;
            Orb64f scale = 1;
            if (k > begin) {
                column = {a_[k][k - 1], a_[k + 1][k - 1], hasThree ? a_[k + 2][k - 1] : 0};
                scale = column.sum();
                if (scale != 0) column = column.over(scale);
            }
            const Orb64f length = std::sqrt(column.p * column.p + column.q * column.q + column.r * column.r);
            if (length == 0) continue;
            const Orb64f s = std::copysign(length, column.p);
            if (k > begin) {
                a_[k][k - 1] = -s * scale;
            } else if (begin > first) {
                a_[k][k - 1] = -a_[k][k - 1];
            }
            reflect(k, hasThree, column, s, first, last);
        }
    }

    // Rows and columns k to k + 2, or k + 1, by the reflection that takes the column to (-s, 0, 0).
    void reflect(int k, bool hasThree, const Column& column, Orb64f s, int first, int last) {
        const Orb64f p = column.p + s, x = p / s, y = column.q / s, z = column.r / s;
        const Orb64f q = column.q / p, r = column.r / p;
        for (int j = k; j <= last; ++j) {
            Orb64f sum = a_[k][j] + q * a_[k + 1][j];
            if (hasThree) {
                sum += r * a_[k + 2][j];
                a_[k + 2][j] -= sum * z;
            }
            a_[k + 1][j] -= sum * y;
            a_[k][j] -= sum * x;
        }
        for (int i = first; i <= std::min(last, k + 3); ++i) {
            Orb64f sum = x * a_[i][k] + y * a_[i][k + 1];
            if (hasThree) {
                sum += z * a_[i][k + 2];
                a_[i][k + 2] -= sum * r;
            }
            a_[i][k + 1] -= sum * q;
            a_[i][k] -= sum;
        }
    }

    Matrix a_;
    Orb64f norm_ = 0;
    std::array<std::complex<Orb64f>, mostRows> values_{};
};

inline std::array<std::complex<Orb64f>, mostRows> eigenvalues(Matrix a) {
    reduceToHessenberg(a);
    return EigenvaluesOfHessenberg(a).values();
}

} // namespace orbs::design
