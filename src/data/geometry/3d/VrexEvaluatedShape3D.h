#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVar.h"
#include "data/VrexVariableDescriptor.h"
#include "data/constraint/equation/VrexExpressionParser.h"

/// What evaluated curves and surfaces have in common: expressions for X, Y and Z over the parameters of the
/// shape and the parameters of other objects that descriptors name.
///
/// The expressions share one list of variables: those of the shape, then one for each descriptor. It is empty
/// at first, and made anew, with new variables, whenever the descriptors change.
class VREX_DATA_EXPORT VrexEvaluatedShape3D {
public:
    static constexpr std::size_t X = 0, Y = 1, Z = 2;
    /// The names of the shape's own parameters, which have to live as long as the shape and its copies.
    explicit VrexEvaluatedShape3D(std::span<const char* const> parameterNames);
    /// A copy has variables of its own, and its expressions are parsed anew.
    VrexEvaluatedShape3D(const VrexEvaluatedShape3D& other);
    VrexEvaluatedShape3D& operator=(const VrexEvaluatedShape3D&) = delete;
    VrexEvaluatedShape3D& operator=(VrexEvaluatedShape3D&&) noexcept = default;
    ~VrexEvaluatedShape3D() = default;

    /// Replaces descriptors and variables, then the texts of X, Y and Z in this order. False at the first
    /// text that is refused; those behind it keep the former variables, and cannot be evaluated if these were
    /// not as many.
    bool set(const std::string& x, const std::string& y, const std::string& z,
             std::vector<VrexVariableDescriptor> descriptors);
    /// False for a text that cannot be parsed or that names other variables.
    bool setText(std::size_t coordinate, const std::string& text);
    const std::string& getText(std::size_t coordinate) const { return m_parsers[coordinate].getExpression(); }
    VrexExpressionParser& getParser(std::size_t coordinate) const { return m_parsers[coordinate]; }

    const std::vector<VrexVariableDescriptor>& descriptors() const { return m_descriptors; }
    /// Replaces descriptors and variables, and parses the texts anew.
    void setDescriptors(std::vector<VrexVariableDescriptor> descriptors);
    /// The variable of the shape's own parameter `index`; null before the first text or list of descriptors.
    /// The next list brings another one.
    std::shared_ptr<VrexVar> getParameter(std::size_t index) const;

    /// Makes the variables anew; with `reparse` binds the texts that are not empty to them.
    void updateVariables(bool reparse);
    /// Whether a parameter named by a descriptor differs from its snapshot by more than `tolerance`.
    bool isChanged(double tolerance) const;

private:
    mutable std::array<VrexExpressionParser, 3> m_parsers;
    std::vector<VrexVariableDescriptor> m_descriptors;
    std::vector<std::shared_ptr<VrexVar>> m_variables;
    std::span<const char* const> m_parameterNames;
};
