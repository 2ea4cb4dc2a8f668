#pragma once

#include <utility>

#include "data/VrexVisitor3D.h"

/// Calls one callable, `F(VrexBaseObject&)`, with every object of whatever class.
template <class F>
class VrexUniformVisitor : public VrexVisitor3D {
public:
    explicit VrexUniformVisitor(F callable) : m_callable(std::move(callable)) {}
    ~VrexUniformVisitor() override = default;

    void visitBaseObject(VrexBaseObject& object) override { m_callable(object); }

private:
    F m_callable;
};
