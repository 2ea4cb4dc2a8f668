#pragma once

#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <utility>

#include <gtest/gtest.h>
#include <tinyxml2.h>

/// The links of a robot description by products of matrices, read without the reader that is tested.
class FrameProducts {
public:
    /// By rows; the last one is 0 0 0 1.
    using Matrix = std::array<std::array<long double, 4>, 4>;

    explicit FrameProducts(const std::filesystem::path& file) {
        tinyxml2::XMLDocument document;
        document.LoadFile(file.c_str());
        for (const auto* joint = document.RootElement()->FirstChildElement(); joint != nullptr;
             joint = joint->NextSiblingElement()) {
            const std::string tag = joint->Name();
            if (tag == "joint" || tag == "drake:joint") {
                m_parents[joint->FirstChildElement("child")->Attribute("link")] = {
                    joint->FirstChildElement("parent")->Attribute("link"),
                    matrixOf(joint->FirstChildElement("origin"))};
            }
        }
    }

    Matrix poseOf(const std::string& link) const {
        const auto found = m_parents.find(link);
        return found == m_parents.end() ? matrixOf(nullptr)
                                        : product(poseOf(found->second.first), found->second.second);
    }

private:
    static std::array<double, 3> numbersOf(const tinyxml2::XMLElement* element, const char* attribute) {
        std::array<double, 3> numbers{};
        const char* const text = element != nullptr ? element->Attribute(attribute) : nullptr;
        if (text != nullptr) {
            EXPECT_EQ(std::sscanf(text, "%lf %lf %lf", &numbers[0], &numbers[1], &numbers[2]), 3) << text;
        }
        return numbers;
    }
    /// Rz Ry Rx, written out.
    static Matrix matrixOf(const tinyxml2::XMLElement* origin) {
        const auto place = numbersOf(origin, "xyz");
        const auto angles = numbersOf(origin, "rpy");
        const long double sr = std::sin(static_cast<long double>(angles[0]));
        const long double cr = std::cos(static_cast<long double>(angles[0]));
        const long double sp = std::sin(static_cast<long double>(angles[1]));
        const long double cp = std::cos(static_cast<long double>(angles[1]));
        const long double sy = std::sin(static_cast<long double>(angles[2]));
        const long double cy = std::cos(static_cast<long double>(angles[2]));
        return {{{cy * cp, cy * sp * sr - sy * cr, cy * sp * cr + sy * sr, place[0]},
                 {sy * cp, sy * sp * sr + cy * cr, sy * sp * cr - cy * sr, place[1]},
                 {-sp, cp * sr, cp * cr, place[2]},
                 {0.0L, 0.0L, 0.0L, 1.0L}}};
    }
    static Matrix product(const Matrix& a, const Matrix& b) {
        Matrix result{};
        for (std::size_t i = 0; i < 4; ++i) {
            for (std::size_t j = 0; j < 4; ++j) {
                result[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j] + a[i][3] * b[3][j];
            }
        }
        return result;
    }

    std::map<std::string, std::pair<std::string, Matrix>> m_parents;
};
