#include "mediaCamera.h"

#include "store/store.h"
#include "util/file.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

PreparedRoot::PreparedRoot()
{
    char acFolder[] = "/tmp/camera-e2e-XXXXXX";
    m_strPath = mkdtemp(acFolder);
    UTIL_ROOT_Set(m_strPath.c_str());
    CFG_STORE_Open("/cfg0/settings.db");
}

PreparedRoot::~PreparedRoot()
{
    CFG_STORE_Close();
    std::filesystem::remove_all(m_strPath);
}

void MediaCamera::setEncoder(const std::string &strLine) const
{
    std::ofstream(path("/var/debug/app/platform/encoder")) << strLine << '\n';
}

int Watcher::watch(int s32Pictures)
{
    int s32Whole = 0;
    bool bWhole = true;
    for (int i = 0; i < s32Pictures;) {
        const tagRTP_S st = m_client.rtp();
        if (st.s32Stream < 0) break;
        if (st.s32Stream != 0) continue;
        bWhole &= m_bFirst || st.u16Sequence == m_u16Next;
        m_bFirst = false;
        m_u16Next = static_cast<BU_U16>(st.u16Sequence + 1);
        if (!st.bMarker) continue;
        s32Whole += bWhole;
        bWhole = true;
        ++i;
    }
    return s32Whole;
}
