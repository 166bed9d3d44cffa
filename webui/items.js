// The items of the panels, one row each. Everything a panel shows follows from its rows.
//
//   group    whose item it is: ISP (image, for each of the two cameras), AF (lens) or PT (head)
//   item     its number within the group
//   kind     slider, select, switch, button
//   key      the setting behind it: its range, and the changes that others make; fineKey: in the superfine speed scale
//   words    [value, text] of the choices of a select; texts of a slider's values by a function
//   affects  items whose state follows from this one; the camera names them in its answer to a change, but not when
//            another controller changes it
//   wide     false: the item is of the close-up camera, or of both at once
//   reset    sets other items back
//   also     [item, value]: makes sense only while that item has that value
//   when     the same for an item that is never asked for: asking would start it

const shutterTimes = [
    24, 25, 30, 48, 50, 60, 75, 90, 96, 100, 120, 125, 150, 180, 215, 250, 300, 350, 425, 500, 600, 725, 1000, 1250,
    1500, 1750, 2000, 2500, 3000, 3500, 4000, 6000, 10000,
]
const stops = ['Closed', 'F14', 'F11', 'F9.6', 'F8', 'F6.8', 'F5.6', 'F4.8', 'F4', 'F3.4', 'F2.8', 'F2.4', 'F2', 'F1.6']
const signed = value => (value > 0 ? `+${value}` : `${value}`)
const kelvin = value => `${value} K`
const per = value => `1/${value}`
const numbered = texts => texts.map((text, value) => [value, text])
const range = (from, to) => Array.from({ length: to - from + 1 }, (_, n) => from + n)

const isp = (item, kind, key, label, more = {}) => ({ group: 'ISP', item, kind, key, label, ...more })
const af = (item, kind, key, label, more = {}) => ({ group: 'AF', item, kind, key, label, wide: false, ...more })
const pt = (item, kind, key, label, more = {}) => ({ group: 'PT', item, kind, key, label, wide: false, ...more })

export const SPEEDS = [
    pt(1, 'slider', 'PanSpeed', 'Pan speed', { fineKey: 'PanSpeedSuperfine' }),
    pt(2, 'slider', 'TileSpeed', 'Tilt speed', { fineKey: 'TileSpeedSuperfine' }),
    pt(5, 'slider', 'ZoomSpd', 'Zoom speed'),
]

export const PANELS = [
    {
        id: 'exposure',
        title: 'Exposure',
        pipes: true,
        sections: [
            {
                rows: [
                    isp(4, 'select', 'ExposureMode', 'Mode', {
                        words: [
                            [0, 'Automatic'],
                            [4, 'Manual'],
                            [2, 'Shutter first'],
                            [3, 'Iris first'],
                            [1, 'Brightness first'],
                        ],
                        affects: [5, 6, 7, 8, 9, 10, 11, 12, 13, 15, 16, 18, 19],
                    }),
                ],
            },
            {
                title: 'Automatic',
                rows: [
                    isp(5, 'select', 'AEMeterMode', 'Metering', {
                        words: numbered(['Average', 'Centre', 'Top', 'Bottom', 'Left', 'Right']),
                    }),
                    isp(6, 'select', 'AntiFlicker', 'Anti-flicker', { words: numbered(['50 Hz', '60 Hz', 'Off']) }),
                    isp(8, 'switch', 'ExposureCompensation', 'Compensation', { affects: [9] }),
                    isp(9, 'slider', 'ExposureCompLevel', 'Level', { text: signed }),
                    isp(7, 'switch', 'BacklightCompensation', 'Backlight'),
                    isp(11, 'slider', 'GainLimit', 'Gain limit'),
                    isp(15, 'slider', 'ExposureBrightness', 'Brightness'),
                    isp(16, 'switch', 'AutoIris', 'Auto iris', { wide: false }),
                ],
            },
            {
                title: 'By hand',
                rows: [
                    isp(18, 'select', 'ShutterMode', 'Shutter in', {
                        words: [
                            [1, 'Steps'],
                            [0, 'Free values'],
                        ],
                        affects: [12, 19],
                    }),
                    isp(12, 'select', 'ShutterSpeed', 'Shutter', {
                        words: numbered(shutterTimes.map(per)),
                        also: [18, 1],
                    }),
                    isp(19, 'slider', 'ShutterValue', 'Shutter, free', { text: per, curve: 'log', also: [18, 0] }),
                    isp(13, 'slider', 'IrisLevel', 'Iris', { text: value => stops[value] ?? value, wide: false }),
                    isp(10, 'slider', 'Gain', 'Gain'),
                ],
            },
            {
                title: 'Light',
                rows: [
                    isp(3, 'select', 'ND-Filter', 'ND filter', {
                        words: numbered(['None', '1/4', '1/16', '1/64']),
                        wide: false,
                    }),
                    isp(2, 'switch', 'ViewFollowExposure', 'Panorama follows', { wide: false }),
                ],
            },
        ],
    },
    {
        id: 'white',
        title: 'White balance',
        short: 'White',
        pipes: true,
        sections: [
            {
                rows: [
                    isp(22, 'select', 'WbMode', 'Mode', {
                        words: numbered(['Automatic', 'Manual', 'Indoor', 'Outdoor', 'Colour temperature', 'One push']),
                        affects: [23, 24, 25, 26, 27, 28, 29, 30, 31, 33],
                    }),
                    isp(31, 'button', 'OnePush', 'One push', { text: 'Measure', when: [22, 5], value: 1 }),
                    isp(33, 'slider', 'ColorTemp', 'Temperature', { text: kelvin }),
                ],
            },
            {
                title: 'Automatic',
                rows: [
                    isp(29, 'select', 'WbSensitivity', 'Sensitivity', { words: numbered(['Low', 'Middle', 'High']) }),
                    isp(26, 'slider', 'RStrength', 'Red strength', { tint: 'red' }),
                    isp(27, 'slider', 'GStrength', 'Green strength', { tint: 'green' }),
                    isp(28, 'slider', 'BStrength', 'Blue strength', { tint: 'blue' }),
                ],
            },
            {
                title: 'By hand',
                rows: [
                    isp(23, 'slider', 'RGain', 'Red gain', { tint: 'red' }),
                    isp(25, 'slider', 'GGain', 'Green gain', { tint: 'green' }),
                    isp(24, 'slider', 'BGain', 'Blue gain', { tint: 'blue' }),
                ],
            },
            {
                title: 'Always',
                rows: [
                    isp(30, 'slider', 'Hue', 'Hue'),
                    isp(21, 'switch', 'ViewFollowWB', 'Panorama follows', { wide: false }),
                ],
            },
        ],
    },
    {
        id: 'picture',
        title: 'Picture',
        pipes: true,
        sections: [
            {
                rows: [
                    isp(35, 'select', 'ImageStyle', 'Style', {
                        words: [
                            [0, 'Default'],
                            [6, 'Bright'],
                            [7, 'Soft'],
                        ],
                    }),
                    isp(39, 'slider', 'Brightness', 'Brightness'),
                    isp(40, 'slider', 'Contrast', 'Contrast'),
                    isp(41, 'slider', 'Saturation', 'Saturation'),
                    isp(38, 'slider', 'Sharpness', 'Sharpness'),
                    isp(42, 'slider', 'Gamma', 'Gamma curve'),
                    isp(36, 'switch', 'MonoChrome', 'Black and white'),
                ],
            },
            {
                title: 'Noise and range',
                rows: [
                    isp(43, 'slider', 'Nr2d', 'Noise, in a frame'),
                    isp(44, 'slider', 'Nr3d', 'Noise, over frames'),
                    isp(45, 'switch', 'WdrSwi', 'Wide dynamic range', { affects: [46] }),
                    isp(46, 'slider', 'WdrMode', 'Strength'),
                    isp(52, 'switch', 'HdrSwi', 'HDR', { wide: false }),
                ],
            },
            {
                title: 'Orientation',
                wide: false,
                rows: [
                    isp(47, 'switch', 'Mirror', 'Mirror', { wide: false }),
                    isp(48, 'switch', 'Flip', 'Upside down', { wide: false }),
                    isp(51, 'switch', 'DistortionCorre', 'Distortion correction', { wide: false }),
                    isp(50, 'switch', 'ImageFreeze', 'Freeze', { wide: false }),
                ],
            },
            {
                rows: [
                    isp(49, 'button', undefined, 'Picture settings', {
                        text: 'Reset',
                        confirm: 'Set the picture and colour settings of this camera back to their defaults?',
                        reset: true,
                    }),
                ],
            },
        ],
    },
    { id: 'colour', title: 'Colour', pipes: true, sections: [] },
    {
        id: 'lens',
        title: 'Lens & head',
        short: 'Lens',
        sections: [
            {
                title: 'Focus',
                rows: [
                    af(5, 'switch', 'FocusAuto', 'Auto focus'),
                    af(1, 'select', 'FocusModel', 'Method', {
                        words: numbered(['Contrast', 'Phase', 'Time of flight']),
                    }),
                    af(3, 'select', 'FocusArea', 'Area', {
                        words: numbered(['Whole picture', 'Centre', 'Upper', 'Lower', 'Future']),
                    }),
                    af(2, 'switch', 'FaceAF', 'On faces'),
                    af(4, 'switch', 'PtzTrigAf', 'After moves'),
                    af(7, 'slider', 'FocusSpd', 'Focus speed'),
                    af(8, 'button', undefined, 'Lens curve', { text: 'Correct' }),
                ],
            },
            {
                title: 'Digital zoom',
                rows: [
                    pt(13, 'switch', 'DZoom', 'Digital zoom', { affects: [12] }),
                    pt(12, 'slider', 'DZoomTime', 'At most', { text: value => `${value}×` }),
                ],
            },
            {
                title: 'Head',
                rows: [
                    pt(14, 'select', 'SpeedMode', 'Speed scale', {
                        words: [
                            [0, 'Standard'],
                            [1, 'Superfine'],
                        ],
                        affects: [1, 2],
                    }),
                    pt(7, 'switch', 'SpeedMatch', 'Slower when zoomed in'),
                    pt(3, 'slider', 'PresetSpeed', 'Preset speed'),
                    pt(4, 'select', 'PowerUpPtzPos', 'Starts at', {
                        words: [[-1, 'Home'], ...range(0, 9).map(n => [n, `Preset ${n}`])],
                    }),
                    pt(6, 'select', 'MountMode', 'Mounted', {
                        words: [
                            [1, 'Standing'],
                            [0, 'From the ceiling'],
                        ],
                    }),
                ],
            },
        ],
    },
    { id: 'remote', title: 'Remote', sections: [] },
    { id: 'users', title: 'Users', sections: [] },
]

/// The kinds of the colour matrix: the event behind each, the settings' names, the range when none is told.
export const MATRIX = [
    { event: 'COLOR_MATRIX_HUE', title: 'Hue', suffix: 'ColorHue', text: signed },
    { event: 'COLOR_MATRIX_SATURATION', title: 'Saturation', suffix: 'ColorSat' },
]
export const COLOURS = ['red', 'yellow', 'green', 'cyan', 'blue', 'magenta'] // numbered from 1

/// Looks that every camera brings along, by their numbers as image presets.
export const LOOKS = [
    [-250, 'Neutral'],
    [-1, 'Natural'],
    [-2, 'Film'],
    [-3, 'Vivid'],
]

/// The keys of the small infrared remote that do something, by their codes, and what they are in an open menu.
/// once: not a movement, so one press is enough while it is held.
export const REMOTE_KEYS = [
    { code: 30, once: true, text: 'Menu', place: 'menu' },
    { code: 32, menu: 'up', text: '▲', label: 'Up', place: 'up' },
    { menu: 'back', text: 'Back', label: 'Back, in the menu', place: 'back' },
    { code: 34, menu: 'left', text: '◀', label: 'Left', place: 'left' },
    {
        code: 15,
        once: true,
        text: 'OK',
        label: 'Home, and enter in the menu; held for 3 seconds: store as home',
        place: 'home',
    },
    { code: 35, menu: 'right', text: '▶', label: 'Right', place: 'right' },
    { code: 33, menu: 'down', text: '▼', label: 'Down', place: 'down' },
    { code: 29, text: 'Zoom +', label: 'Zoom in', place: 'tele' },
    { code: 28, text: 'Zoom −', label: 'Zoom out', place: 'wide' },
    { code: 24, text: 'Far', label: 'Focus far', place: 'far' },
    { code: 23, text: 'Near', label: 'Focus near', place: 'near' },
]
