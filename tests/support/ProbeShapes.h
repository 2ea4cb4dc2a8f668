#pragma once

#include <exception>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "data/geometry/3d/VrexParametricCurve3D.h"
#include "data/geometry/3d/VrexParametricCurveCalculator3D.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"
#include "data/geometry/3d/VrexParametricSurfaceCalculator3D.h"

/// A curve without a row of its own, and so without a calculator.
class ProbeCurve : public VrexParametricCurve3D {
public:
    ProbeCurve() : VrexParametricCurve3D(VrexGeometry3DType::CIRCLE, 0) {}
    std::shared_ptr<VrexBaseObject> makeCopy() override { return std::make_shared<ProbeCurve>(*this); }
    const char* getNamePrefix() const override { return "probe"; }
    int dof() const override { return 0; }
    std::pair<std::optional<double>, std::optional<double>> interval() const override {
        return {start(), end()};
    }

private:
    void restoreFromCopy(const VrexBaseObject& copy) override {
        *this = ProbeCurve(dynamic_cast<const ProbeCurve&>(copy));
    }
};

/// A surface without a row of its own, and so without a calculator.
class ProbeSurface : public VrexParametricSurface3D {
public:
    ProbeSurface() : VrexParametricSurface3D(VrexGeometry3DType::TORUS, 0) {}
    std::shared_ptr<VrexBaseObject> makeCopy() override { return std::make_shared<ProbeSurface>(*this); }
    const char* getNamePrefix() const override { return "probe"; }
    int dof() const override { return 0; }
    std::pair<std::optional<double>, std::optional<double>> intervalU() const override {
        return {startU(), endU()};
    }
    std::pair<std::optional<double>, std::optional<double>> intervalV() const override {
        return {startV(), endV()};
    }

private:
    void restoreFromCopy(const VrexBaseObject& copy) override {
        *this = ProbeSurface(dynamic_cast<const ProbeSurface&>(copy));
    }
};

/// Counts its evaluations; derivative k at t is (t, k, number of the evaluation).
class ProbeCurveCalculator : public VrexParametricCurveCalculator3D {
public:
    using VrexParametricCurveCalculator3D::addZeroDerivatives;

    std::vector<VrexVector3DT<VrexVariable>> calculate(const std::vector<VrexVariable>& /*parameters*/,
                                                       const VrexVariable& t, int order) override {
        return make<VrexVariable>(t, order);
    }
    std::vector<VrexVector3DT<double>> calculate(double t, int order) override {
        return make<double>(t, order);
    }

    int evaluations = 0;
    /// Makes the next evaluation throw it.
    std::exception_ptr failure;

private:
    template <typename T>
    std::vector<VrexVector3DT<T>> make(const T& t, int order) {
        if (failure) {
            std::rethrow_exception(std::exchange(failure, nullptr));
        }
        ++evaluations;
        std::vector<VrexVector3DT<T>> result;
        for (int k = 0; k <= order; ++k) {
            result.emplace_back(t, T(double(k)), T(double(evaluations)));
        }
        return result;
    }
};

/// Counts its evaluations; element n of a sample is (u, v, 100 * number of the evaluation + n), and the
/// normal that of the base.
class ProbeSurfaceCalculator : public VrexParametricSurfaceCalculator3D {
public:
    using VrexParametricSurfaceCalculator3D::addZeroDerivatives;

    VrexSurfaceSample<VrexVector3DT<VrexVariable>> calculate(const std::vector<VrexVariable>& /*parameters*/,
                                                             const VrexVariable& u, const VrexVariable& v,
                                                             int order) override {
        return make<VrexVariable>(u, v, order);
    }
    VrexSurfaceSample<VrexVector3DT<double>> calculate(double u, double v, int order) override {
        return make<double>(u, v, order);
    }

    int evaluations = 0;
    int lastOrder = -1;
    /// Makes the next evaluation throw it.
    std::exception_ptr failure;

private:
    template <typename T>
    VrexSurfaceSample<VrexVector3DT<T>> make(const T& u, const T& v, int order) {
        if (failure) {
            std::rethrow_exception(std::exchange(failure, nullptr));
        }
        ++evaluations;
        lastOrder = order;
        VrexSurfaceSample<VrexVector3DT<T>> sample;
        double element = 100.0 * evaluations;
        for (auto& vector : sample) {
            vector = {u, v, T(element++)};
        }
        return sample;
    }
};
