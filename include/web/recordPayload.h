/// Payloads of the recording pages: set-up, state, files, snapshots, the storage card.
#pragma once

#include "web/payload.h"

/// The values of CFG_RECORD_INFO_S in its order; their meaning is the recorder's.
struct tag_WEB_RPC_GENERAL_RECORD_SETUP_CFG_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_GENERAL_RECORD_SETUP_CFG_PAYLOAD_S> {
    BU_U32 record_channel = 0;
    BU_U32 record_format = 0;
    BU_U32 audio_record = 0;
    BU_U32 loop_record = 0;
    BU_U32 free_record = 0;
    BU_U32 record_duration = 0;
    BU_U32 fragment_duration = 0;
    BU_U32 record_filename_foramt = 0;
    BU_U32 record_file_path = 0;
};
WEB_FIELDS(tag_WEB_RPC_GENERAL_RECORD_SETUP_CFG_PAYLOAD_S, WEB_FIELD(record_channel, 8), WEB_FIELD(record_format, 12),
           WEB_FIELD(audio_record, 16), WEB_FIELD(loop_record, 20), WEB_FIELD(free_record, 24),
           WEB_FIELD(record_duration, 28), WEB_FIELD(fragment_duration, 32), WEB_FIELD(record_filename_foramt, 36),
           WEB_FIELD(record_file_path, 40));
WEB_IMAGE_FORM(tag_WEB_RPC_GENERAL_RECORD_SETUP_CFG_PAYLOAD_S, 48);

struct tag_WEB_RPC_GENERAL_RECORD_STATUS_CFG_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_GENERAL_RECORD_STATUS_CFG_PAYLOAD_S> {
    BU_U32 status = 0; ///< 1 records
};
WEB_FIELDS(tag_WEB_RPC_GENERAL_RECORD_STATUS_CFG_PAYLOAD_S, WEB_FIELD(status, 8));
WEB_IMAGE_FORM(tag_WEB_RPC_GENERAL_RECORD_STATUS_CFG_PAYLOAD_S, 16);

/// The values of CFG_RECORD_SNAPSHOT_INFO_S in its order.
struct tag_WEB_RPC_GENERAL_RECORD_SNAPSHOT_CFG_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_GENERAL_RECORD_SNAPSHOT_CFG_PAYLOAD_S> {
    BU_U32 snapshot_format = 0;
    BU_U32 snapshot_filename_format = 0;
    BU_U32 snapshot_file_path = 0;
};
WEB_FIELDS(tag_WEB_RPC_GENERAL_RECORD_SNAPSHOT_CFG_PAYLOAD_S, WEB_FIELD(snapshot_format, 8),
           WEB_FIELD(snapshot_filename_format, 12), WEB_FIELD(snapshot_file_path, 16));
WEB_IMAGE_FORM(tag_WEB_RPC_GENERAL_RECORD_SNAPSHOT_CFG_PAYLOAD_S, 24);

/// Of a response. Any set formats the card, whatever its fields hold.
struct tag_WEB_RPC_GENERAL_RECORD_SD_STATUS_CFG_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_GENERAL_RECORD_SD_STATUS_CFG_PAYLOAD_S> {
    BU_U32 total_capacity = 0;
    BU_U32 used_capacity = 0;
    BU_U32 status = 0;
    BU_U32 format = 0;
};
WEB_FIELDS(tag_WEB_RPC_GENERAL_RECORD_SD_STATUS_CFG_PAYLOAD_S, WEB_FIELD(total_capacity, 8),
           WEB_FIELD(used_capacity, 12), WEB_FIELD(status, 16), WEB_FIELD(format, 20));
WEB_IMAGE_FORM(tag_WEB_RPC_GENERAL_RECORD_SD_STATUS_CFG_PAYLOAD_S, 24);

struct t_RecordFile {
    BU_CHAR filename[128];
    BU_U32 duration;
    BU_U32 size;
};
WEB_FIELDS(t_RecordFile, WEB_FIELD(filename, 0), WEB_FIELD(duration, 128), WEB_FIELD(size, 132));
WEB_NESTED_FORM(t_RecordFile, 136);

/// A request names the page and the range of dates; the response is the page.
struct tag_WEB_RPC_GENERAL_RECORD_FILE_LIST_CFG_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_GENERAL_RECORD_FILE_LIST_CFG_PAYLOAD_S> {
    BU_U32 page_num = 0;
    BU_U32 page_size = 0;
    BU_CHAR date_from[32]{};
    BU_CHAR date_end[32]{};
    BU_U32 total = 0;
    BU_U32 used_size = 0;
    t_RecordFile items[5]{};
};
WEB_FIELDS(tag_WEB_RPC_GENERAL_RECORD_FILE_LIST_CFG_PAYLOAD_S, WEB_FIELD(page_num, 8), WEB_FIELD(page_size, 12),
           WEB_FIELD(date_from, 16), WEB_FIELD(date_end, 48), WEB_FIELD(total, 80), WEB_FIELD(used_size, 84),
           WEB_FIELD(items, 88));
WEB_IMAGE_FORM(tag_WEB_RPC_GENERAL_RECORD_FILE_LIST_CFG_PAYLOAD_S, 768);

enum WEB_RECORD_FILE_OPERATION_TYPE_E : BU_S32 {
    WEB_RECORD_FILE_OPERATION_TYPE_E_PLAY = 0,
    WEB_RECORD_FILE_OPERATION_TYPE_E_PAUSE,
    WEB_RECORD_FILE_OPERATION_TYPE_E_STOP,
    WEB_RECORD_FILE_OPERATION_TYPE_E_CONTINUE,
    WEB_RECORD_FILE_OPERATION_TYPE_E_SEEK,
    WEB_RECORD_FILE_OPERATION_TYPE_E_SNAPSHOT,
    WEB_RECORD_FILE_OPERATION_TYPE_E_DELETE
};

union t_RecordOperationPara {
    BU_U32 seek; ///< [s] from the beginning
};
WEB_MEMBERS(t_RecordOperationPara, operation, WEB_MEMBER(WEB_RECORD_FILE_OPERATION_TYPE_E_SEEK, seek));

struct tag_WEB_RPC_GENERAL_RECORD_FILE_OPERATION_CFG_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_GENERAL_RECORD_FILE_OPERATION_CFG_PAYLOAD_S> {
    WEB_RECORD_FILE_OPERATION_TYPE_E operation{};
    BU_CHAR filename[128]{}; ///< of a response: the file that came of it, such as a snapshot's
    t_RecordOperationPara operationPara{};
};
WEB_FIELDS(tag_WEB_RPC_GENERAL_RECORD_FILE_OPERATION_CFG_PAYLOAD_S, WEB_FIELD(operation, 8), WEB_FIELD(filename, 12),
           WEB_FIELD(operationPara, 140));
WEB_IMAGE_FORM(tag_WEB_RPC_GENERAL_RECORD_FILE_OPERATION_CFG_PAYLOAD_S, 144);
