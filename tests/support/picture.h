/// A picture with its own memory, and a scene that closes itself.
#pragma once

#include "scene/scene.h"

#include <array>
#include <cmath>
#include <memory>
#include <numeric>
#include <vector>

class Picture
{
public:
    Picture(BU_S32 s32Width, BU_S32 s32Height, BU_U8 u8Y = 0, BU_U8 u8U = 128, BU_U8 u8V = 128)
        : m_s32Width(s32Width), m_s32Height(s32Height),
          m_vec(static_cast<std::size_t>(s32Width * s32Height * 3 / 2), u8Y)
    {
        for (std::size_t i = luma(); i < m_vec.size(); i += 2) m_vec[i] = u8U, m_vec[i + 1] = u8V;
    }
    SCENE_FRAME_S frame()
    {
        return {m_vec.data(), m_vec.data() + luma(), m_s32Width, m_s32Width, m_s32Width, m_s32Height};
    }
    BU_U8 &y(BU_S32 x, BU_S32 y) { return m_vec[static_cast<std::size_t>(y * m_s32Width + x)]; }
    BU_U8 &u(BU_S32 x, BU_S32 y) { return m_vec[luma() + static_cast<std::size_t>(y / 2 * m_s32Width + (x & ~1))]; }
    BU_U8 &v(BU_S32 x, BU_S32 y) { return m_vec[luma() + static_cast<std::size_t>(y / 2 * m_s32Width + (x | 1))]; }
    std::array<int, 3> at(BU_S32 x, BU_S32 y) { return {this->y(x, y), u(x, y), v(x, y)}; }
    BU_S32 width() const { return m_s32Width; }
    BU_S32 height() const { return m_s32Height; }
    bool operator==(const Picture &) const = default;
    /// Mean difference of all bytes.
    double difference(const Picture &other) const
    {
        const auto distance = [](int a, int b) { return std::abs(a - b); };
        return std::inner_product(m_vec.begin(), m_vec.end(), other.m_vec.begin(), 0.0, std::plus<>(), distance) /
               static_cast<double>(m_vec.size());
    }
    /// Sum of the luma's steps from each point to its neighbour at that distance.
    double steps(BU_S32 s32Left, BU_S32 s32Up)
    {
        double dSum = 0;
        for (BU_S32 j = s32Up; j < m_s32Height; ++j)
            for (BU_S32 i = s32Left; i < m_s32Width; ++i) dSum += std::abs(y(i, j) - y(i - s32Left, j - s32Up));
        return dSum;
    }

private:
    std::size_t luma() const { return static_cast<std::size_t>(m_s32Width * m_s32Height); }
    BU_S32 m_s32Width, m_s32Height;
    std::vector<BU_U8> m_vec;
};

struct SceneCloser {
    void operator()(SCENE_S *pst) const { SCENE_Close(pst); }
};
typedef std::unique_ptr<SCENE_S, SceneCloser> Scene;
