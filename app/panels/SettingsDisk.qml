import QtQuick
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Panels

SettingsPage {
    id: root

    Section {
        SettingRow {
            key: "diskLargeMegabytes"
            title: qsTr("Large files")
            detail: qsTr("From this size on, if nobody has opened them for a while")
            controlLabel: qsTr("The least size of a large file")
            options: [qsTr("100 MB"), qsTr("500 MB"), qsTr("1 GB"), qsTr("5 GB")]
            values: [100, 500, 1000, 5000]
        }
        SettingRow {
            key: "diskLargeDays"
            title: qsTr("Large files that nobody opened for")
            unit: qsTr("days")
            step: 10
        }
        SettingRow {
            key: "diskDuplicateMegabytes"
            title: qsTr("Duplicates")
            detail: qsTr("Smaller files are not compared, which makes a scan faster")
            controlLabel: qsTr("The least size of a duplicate")
            options: [qsTr("10 MB"), qsTr("100 MB"), qsTr("1 GB")]
            values: [10, 100, 1000]
        }
        SettingRow {
            key: "diskProjectDays"
            title: qsTr("Projects left alone for")
            unit: qsTr("days")
            step: 10
        }
        SettingRow {
            key: "diskInstallerDays"
            title: qsTr("Downloaded installers older than")
            unit: qsTr("days")
            step: 10
        }
        SettingRow {
            key: "diskScreenshotDays"
            title: qsTr("Screenshots older than")
            unit: qsTr("days")
            step: 10
        }
    }
    TextListSection {
        title: qsTr("Folders to leave out")
        detail: qsTr("Disk Doctor does not look into them; the next scan goes by this")
        hint: qsTr("~/folder")
        texts: root.settings.diskExcludedFolders
        onChosen: texts => root.settings.diskExcludedFolders = texts
    }
}
