<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CButtonItemDelegate</name>
    <message>
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
</context>
<context>
    <name>CEmailEditDlg</name>
    <message>
        <source>The email address is invalid, Please re-enter it.</source>
        <translation>邮箱地址无效，请重新输入。</translation>
    </message>
    <message>
        <source>Duplicate email addresses exist.</source>
        <translation>邮箱地址重复。</translation>
    </message>
    <message>
        <source>Email format is incorrect, please re-enter.</source>
        <translation>邮箱格式不正确，请重新输入。</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>Modify</source>
        <translation>修改</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Email address</source>
        <translation>邮箱地址</translation>
    </message>
</context>
<context>
    <name>CEmailTableWidget</name>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Email address</source>
        <translation>邮箱地址</translation>
    </message>
</context>
<context>
    <name>CEmailWidget</name>
    <message>
        <source>Email notification</source>
        <translation>邮件通知</translation>
    </message>
    <message>
        <source>Recovery notice</source>
        <translation>恢复通知</translation>
    </message>
    <message>
        <source>SSL encryption</source>
        <translation>SSL 加密</translation>
    </message>
    <message>
        <source>Send mail if</source>
        <translation>连续检测到</translation>
    </message>
    <message>
        <source>alerts have been continuously detected</source>
        <translation>次告警时发送邮件</translation>
    </message>
    <message>
        <source>Sender email settings</source>
        <translation>发件邮箱设置</translation>
    </message>
    <message>
        <source>Email address</source>
        <translation>邮箱地址</translation>
    </message>
    <message>
        <source>Email password</source>
        <translation>邮箱密码</translation>
    </message>
    <message>
        <source>SMTP server</source>
        <translation>SMTP 服务器</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>端口</translation>
    </message>
    <message>
        <source>Send test email</source>
        <translation>发送测试邮件</translation>
    </message>
    <message>
        <source>Email format is incorrect, please re-enter.</source>
        <translation>邮箱格式不正确，请重新输入。</translation>
    </message>
    <message>
        <source>The SSL port number of the mailbox is invalid.</source>
        <translation>邮箱的 SSL 端口号无效。</translation>
    </message>
    <message>
        <source>This is a test email from Orvel.</source>
        <translation>这是一封来自 Orvel 的测试邮件。</translation>
    </message>
    <message>
        <source>The email was sent successful.</source>
        <translation>邮件发送成功。</translation>
    </message>
    <message>
        <source>Failed to send the email.</source>
        <translation>邮件发送失败。</translation>
    </message>
    <message>
        <source>Receiving address:</source>
        <translation>收件地址：</translation>
    </message>
    <message>
        <source>, failed to send the email.</source>
        <translation>，邮件发送失败。</translation>
    </message>
</context>
<context>
    <name>CMonitoringSettings</name>
    <message>
        <source>General settings</source>
        <translation>常规设置</translation>
    </message>
    <message>
        <source>Processor settings</source>
        <translation>处理器设置</translation>
    </message>
    <message>
        <source>Receiver settings</source>
        <translation>接收卡设置</translation>
    </message>
    <message>
        <source>Email settings</source>
        <translation>邮件设置</translation>
    </message>
    <message>
        <source>%1, lower limit</source>
        <translation>%1，下限</translation>
    </message>
    <message>
        <source>%1, upper limit</source>
        <translation>%1，上限</translation>
    </message>
    <message>
        <source>Video input monitoring</source>
        <translation>视频输入监控</translation>
    </message>
    <message>
        <source>Video input alert</source>
        <translation>视频输入告警</translation>
    </message>
    <message>
        <source>Freeze monitoring</source>
        <translation>画面冻结监控</translation>
    </message>
    <message>
        <source>Freeze alert</source>
        <translation>画面冻结告警</translation>
    </message>
    <message>
        <source>Blackout monitoring</source>
        <translation>黑屏监控</translation>
    </message>
    <message>
        <source>Blackout alert</source>
        <translation>黑屏告警</translation>
    </message>
    <message>
        <source>0 brightness monitoring</source>
        <translation>零亮度监控</translation>
    </message>
    <message>
        <source>0 brightness alert</source>
        <translation>零亮度告警</translation>
    </message>
    <message>
        <source>Temperature monitoring</source>
        <translation>温度监控</translation>
    </message>
    <message>
        <source>Temperature over</source>
        <translation>温度超过</translation>
    </message>
    <message>
        <source>Humidity monitoring</source>
        <translation>湿度监控</translation>
    </message>
    <message>
        <source>Humidity over</source>
        <translation>湿度超过</translation>
    </message>
    <message>
        <source>Cable error monitoring</source>
        <translation>线缆误码监控</translation>
    </message>
    <message>
        <source>Cable error alert</source>
        <translation>线缆误码告警</translation>
    </message>
    <message>
        <source>Fan monitoring</source>
        <translation>风扇监控</translation>
    </message>
    <message>
        <source>Fan status viewable</source>
        <translation>可查看风扇状态</translation>
    </message>
    <message>
        <source>PSU 1 monitoring</source>
        <translation>电源 1 监控</translation>
    </message>
    <message>
        <source>PSU 1 alert</source>
        <translation>电源 1 告警</translation>
    </message>
    <message>
        <source>PSU 2 monitoring</source>
        <translation>电源 2 监控</translation>
    </message>
    <message>
        <source>PSU 2 alert</source>
        <translation>电源 2 告警</translation>
    </message>
    <message>
        <source>PSU 3 monitoring</source>
        <translation>电源 3 监控</translation>
    </message>
    <message>
        <source>PSU 3 alert</source>
        <translation>电源 3 告警</translation>
    </message>
    <message>
        <source>PSU 4 monitoring</source>
        <translation>电源 4 监控</translation>
    </message>
    <message>
        <source>PSU 4 alert</source>
        <translation>电源 4 告警</translation>
    </message>
    <message>
        <source>Voltage 1 monitoring</source>
        <translation>电压 1 监控</translation>
    </message>
    <message>
        <source>Voltage 1 range</source>
        <translation>电压 1 范围</translation>
    </message>
    <message>
        <source>Voltage 2 monitoring</source>
        <translation>电压 2 监控</translation>
    </message>
    <message>
        <source>Voltage 2 range</source>
        <translation>电压 2 范围</translation>
    </message>
    <message>
        <source>Voltage 3 monitoring</source>
        <translation>电压 3 监控</translation>
    </message>
    <message>
        <source>Voltage 3 range</source>
        <translation>电压 3 范围</translation>
    </message>
    <message>
        <source>Receiver voltage monitoring</source>
        <translation>接收卡电压监控</translation>
    </message>
    <message>
        <source>Receiver voltage range</source>
        <translation>接收卡电压范围</translation>
    </message>
    <message>
        <source>Refresh interval</source>
        <translation>刷新间隔</translation>
    </message>
    <message>
        <source>(Interval range 10s~2h)</source>
        <translation>（间隔范围：10s~2h）</translation>
    </message>
    <message>
        <source>alert</source>
        <translation>时告警</translation>
    </message>
    <message>
        <source>Cable error</source>
        <translation>线缆误码</translation>
    </message>
    <message>
        <source>Receiver</source>
        <translation>接收卡</translation>
    </message>
    <message>
        <source>Power supply monitoring</source>
        <translation>电源监控</translation>
    </message>
    <message>
        <source>Voltage monitoring</source>
        <translation>电压监控</translation>
    </message>
</context>
<context>
    <name>CMultiRcvCabinetSetDlg</name>
    <message>
        <source>Please select a parameter file.</source>
        <translation>请选择参数文件。</translation>
    </message>
    <message>
        <source>The parameter file does not exist.</source>
        <translation>参数文件不存在。</translation>
    </message>
    <message>
        <source>Please complete a box of multi-card wiring.</source>
        <translation>请完成多卡箱体的走线。</translation>
    </message>
    <message>
        <source>Wizard</source>
        <translation>向导</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>上一步</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>下一步</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>The type name is empty.</source>
        <translation>类型名称为空。</translation>
    </message>
    <message>
        <source>The lower voltage limit is greater than the upper voltage limit.</source>
        <translation>电压下限大于电压上限。</translation>
    </message>
    <message>
        <source>There is a duplicate box of multi-card file naming.</source>
        <translation>已存在同名的多卡箱体文件。</translation>
    </message>
    <message>
        <source>Should you replace the old parameter file with a new parameter file?</source>
        <translation>是否用新的参数文件替换旧的参数文件？</translation>
    </message>
</context>
<context>
    <name>CMultiRcvCabinetSetFirstPage</name>
    <message>
        <source>Cabinet configuration</source>
        <translation>箱体配置</translation>
    </message>
    <message>
        <source>Receiver count</source>
        <translation>接收卡数量</translation>
    </message>
    <message>
        <source>%1 x %2</source>
        <translation>%1 x %2</translation>
    </message>
    <message>
        <source>Parameter file</source>
        <translation>参数文件</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>浏览...</translation>
    </message>
    <message>
        <source>Parameter(*.rcvp *.rcvbp)</source>
        <translation>参数文件(*.rcvp *.rcvbp)</translation>
    </message>
    <message>
        <source>Non-single cabinet parameter file.</source>
        <translation>不是单卡箱体参数文件。</translation>
    </message>
    <message>
        <source>The same parameter file already exists. Do you want to use this parameter file?</source>
        <translation>已存在相同的参数文件，是否使用该参数文件？</translation>
    </message>
    <message>
        <source>The same file name already exists. Do you want to replace the old file with the new one?</source>
        <translation>已存在同名文件，是否用新文件替换旧文件？</translation>
    </message>
    <message>
        <source>Please select cabinet type file</source>
        <translation>请选择箱体类型文件</translation>
    </message>
</context>
<context>
    <name>CMultiRcvCabinetSetSecondPage</name>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>S topology with first right and then down</source>
        <translation>S 形走线，先向右再向下</translation>
    </message>
    <message>
        <source>S topology with first left and then down</source>
        <translation>S 形走线，先向左再向下</translation>
    </message>
    <message>
        <source>S topology with first down and then right</source>
        <translation>S 形走线，先向下再向右</translation>
    </message>
    <message>
        <source>S topology with first up and then right</source>
        <translation>S 形走线，先向上再向右</translation>
    </message>
    <message>
        <source>S topology with first left and then up</source>
        <translation>S 形走线，先向左再向上</translation>
    </message>
    <message>
        <source>S topology with first right and then up</source>
        <translation>S 形走线，先向右再向上</translation>
    </message>
    <message>
        <source>S topology with first up and then left</source>
        <translation>S 形走线，先向上再向左</translation>
    </message>
    <message>
        <source>Specify orientation</source>
        <translation>指定走线方向</translation>
    </message>
    <message>
        <source>Left-click to select, right-click to unselect</source>
        <translation>左键选择，右键取消选择</translation>
    </message>
    <message>
        <source>Receiver wiring</source>
        <translation>接收卡走线</translation>
    </message>
    <message>
        <source>S topology with first down and then left</source>
        <translation>S 形走线，先向下再向左</translation>
    </message>
</context>
<context>
    <name>CMultiRcvCabinetSetThirdPage</name>
    <message>
        <source>Type name</source>
        <translation>类型名称</translation>
    </message>
    <message>
        <source>Weight(Kg)</source>
        <translation>重量(Kg)</translation>
    </message>
    <message>
        <source>Power(W)</source>
        <translation>功率(W)</translation>
    </message>
    <message>
        <source>Working voltage(V)</source>
        <translation>工作电压(V)</translation>
    </message>
    <message>
        <source>Lower limit of the working voltage(V)</source>
        <translation>工作电压下限(V)</translation>
    </message>
    <message>
        <source>Upper limit of the working voltage(V)</source>
        <translation>工作电压上限(V)</translation>
    </message>
</context>
<context>
    <name>CParameterFileMenu</name>
    <message>
        <source>Browse...</source>
        <translation>浏览...</translation>
    </message>
</context>
<context>
    <name>CPreferencesSettings</name>
    <message>
        <source>General settings</source>
        <translation>常规设置</translation>
    </message>
    <message>
        <source>Software modules</source>
        <translation>软件模块</translation>
    </message>
    <message>
        <source>Layout options</source>
        <translation>布局选项</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>间距</translation>
    </message>
    <message>
        <source>Keyboard shortcuts table...</source>
        <translation>快捷键一览表...</translation>
    </message>
    <message>
        <source>Show grid</source>
        <translation>显示网格</translation>
    </message>
    <message>
        <source>Show string position</source>
        <translation>显示走线位置</translation>
    </message>
    <message>
        <source>Snap to cabinets</source>
        <translation>吸附到箱体</translation>
    </message>
    <message>
        <source>Show programming pane</source>
        <translation>显示编程面板</translation>
    </message>
    <message>
        <source>Show layout pane</source>
        <translation>显示布局面板</translation>
    </message>
    <message>
        <source>Show soft edge pane</source>
        <translation>显示修缝面板</translation>
    </message>
    <message>
        <source>Show color adjustment pane</source>
        <translation>显示色彩调整面板</translation>
    </message>
    <message>
        <source>Show health monitoring pane</source>
        <translation>显示健康监控面板</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>中文</translation>
    </message>
    <message>
        <source>USB primary</source>
        <translation>USB 优先</translation>
    </message>
    <message>
        <source>USB and LAN</source>
        <translation>USB 和局域网</translation>
    </message>
    <message>
        <source>Designated IP address</source>
        <translation>指定 IP 地址</translation>
    </message>
    <message>
        <source>Celsius（°C）</source>
        <translation>摄氏度（°C）</translation>
    </message>
    <message>
        <source>Fahrenheit（℉）</source>
        <translation>华氏度（℉）</translation>
    </message>
    <message>
        <source>Advanced soft edge(require receiving card support)</source>
        <translation>高级修缝（需要接收卡支持）</translation>
    </message>
    <message>
        <source>Soft edge</source>
        <translation>修缝</translation>
    </message>
    <message>
        <source>Language options</source>
        <translation>语言选项</translation>
    </message>
    <message>
        <source>Priority connection</source>
        <translation>优先连接方式</translation>
    </message>
    <message>
        <source>Show temperature in</source>
        <translation>温度显示单位</translation>
    </message>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>键盘快捷键</translation>
    </message>
    <message>
        <source>Detect processors which connected via USB connection only, If there is no processor connected via USB connection, then the software will try to detect processor in the LAN.</source>
        <translation>仅检测通过 USB 连接的处理器；如果没有处理器通过 USB 连接，软件会尝试检测局域网中的处理器。</translation>
    </message>
    <message>
        <source>Detect processors which connected via USB or LAN connection.</source>
        <translation>检测通过 USB 或局域网连接的处理器。</translation>
    </message>
    <message>
        <source>Detect processors whose IP address has been associated to IP address management in device information tab.</source>
        <translation>检测已在“设备信息”页的 IP 地址管理中关联了 IP 地址的处理器。</translation>
    </message>
    <message>
        <source>Save project</source>
        <translation>保存工程</translation>
    </message>
    <message>
        <source>The project has not been saved, want to save it?</source>
        <translation>工程尚未保存，是否保存？</translation>
    </message>
</context>
<context>
    <name>CProductTreeDelegate</name>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
</context>
<context>
    <name>CProductTreeMenu</name>
    <message>
        <source>New type folder</source>
        <translation>新建类型文件夹</translation>
    </message>
    <message>
        <source>Import as folder</source>
        <translation>导入文件夹</translation>
    </message>
    <message>
        <source>Import cabinet type file(Suffix rcvbp)</source>
        <translation>导入箱体类型文件（后缀 rcvbp）</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message>
        <source>Export cabinet parameters by group</source>
        <translation>按组导出箱体参数</translation>
    </message>
    <message>
        <source>Export current cabinet parameters</source>
        <translation>导出当前箱体参数</translation>
    </message>
    <message>
        <source>Export all cabinet parameters</source>
        <translation>导出所有箱体参数</translation>
    </message>
</context>
<context>
    <name>CProductTreeModel</name>
    <message>
        <source>There is already a type group with the same name.</source>
        <translation>已存在同名的类型组。</translation>
    </message>
    <message>
        <source>There is already a type with the same name.</source>
        <translation>已存在同名的类型。</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Resolution</source>
        <translation>分辨率</translation>
    </message>
    <message>
        <source>Operate</source>
        <translation>操作</translation>
    </message>
</context>
<context>
    <name>CProductTreeView</name>
    <message>
        <source>The action cannot be completed because the type (%1) is being used in layout.</source>
        <translation>类型（%1）正在布局中使用，无法完成此操作。</translation>
    </message>
    <message>
        <source>The action cannot be done because the subdirectory is limited to 3 layers.</source>
        <translation>子目录最多为 3 层，无法执行此操作。</translation>
    </message>
    <message>
        <source>The action cannot be completed because the type is being used in layout.</source>
        <translation>该类型正在布局中使用，无法完成此操作。</translation>
    </message>
    <message>
        <source>Are you sure want to delete type group(%1)?</source>
        <translation>确定要删除类型组（%1）吗？</translation>
    </message>
    <message>
        <source>Are you sure want to delete type(%1)?</source>
        <translation>确定要删除类型（%1）吗？</translation>
    </message>
    <message>
        <source>New type folder</source>
        <translation>新建类型文件夹</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>导出...</translation>
    </message>
    <message>
        <source>Export successful.</source>
        <translation>导出成功。</translation>
    </message>
    <message>
        <source>Export failed.</source>
        <translation>导出失败。</translation>
    </message>
    <message>
        <source>File(*.%1)</source>
        <translation>文件(*.%1)</translation>
    </message>
    <message>
        <source>All types</source>
        <translation>所有类型</translation>
    </message>
    <message>
        <source>Importing...</source>
        <translation>正在导入...</translation>
    </message>
    <message>
        <source>Import...</source>
        <translation>导入...</translation>
    </message>
    <message>
        <source>There is no valid type file in this folder.</source>
        <translation>此文件夹中没有有效的类型文件。</translation>
    </message>
    <message>
        <source>Import failed.</source>
        <translation>导入失败。</translation>
    </message>
    <message>
        <source>All type files in the type group has been added.</source>
        <translation>该类型组中的类型文件均已添加。</translation>
    </message>
    <message>
        <source>There is already a same type file: %1</source>
        <translation>已存在相同的类型文件：%1</translation>
    </message>
    <message>
        <source>Parameter(*.rcvp *.rcvbp)</source>
        <translation>参数文件(*.rcvp *.rcvbp)</translation>
    </message>
    <message>
        <source>Add cabinet type failed.</source>
        <translation>添加箱体类型失败。</translation>
    </message>
    <message>
        <source>Duplicated type files:(%1).</source>
        <translation>以下类型文件重复：%1。</translation>
    </message>
    <message>
        <source>There is already a type file with the same name under this subdirectory(%1).</source>
        <translation>此子目录下已存在同名的类型文件（%1）。</translation>
    </message>
</context>
<context>
    <name>CSettingArea</name>
    <message>
        <source>Preferences</source>
        <translation>偏好设置</translation>
    </message>
    <message>
        <source>Type library</source>
        <translation>类型库</translation>
    </message>
    <message>
        <source>Health settings</source>
        <translation>健康监控</translation>
    </message>
</context>
<context>
    <name>CShortcutPanel</name>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>键盘快捷键</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>布局</translation>
    </message>
    <message>
        <source>Soft edge</source>
        <translation>修缝</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Select all cabinets</source>
        <translation>全选箱体</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Delete cabinet</source>
        <translation>删除箱体</translation>
    </message>
    <message>
        <source>Move cabinet(↑)</source>
        <translation>移动箱体(↑)</translation>
    </message>
    <message>
        <source>Move cabinet(↓)</source>
        <translation>移动箱体(↓)</translation>
    </message>
    <message>
        <source>Move cabinet(←)</source>
        <translation>移动箱体(←)</translation>
    </message>
    <message>
        <source>Move cabinet(→)</source>
        <translation>移动箱体(→)</translation>
    </message>
    <message>
        <source>Exit add cabinet</source>
        <translation>退出添加箱体</translation>
    </message>
    <message>
        <source>Adjust coef(+1%)</source>
        <translation>调整系数(+1%)</translation>
    </message>
    <message>
        <source>Adjust coef(-1%)</source>
        <translation>调整系数(-1%)</translation>
    </message>
    <message>
        <source>Adjust coef(+0.4%)</source>
        <translation>调整系数(+0.4%)</translation>
    </message>
    <message>
        <source>Adjust coef(-0.4%)</source>
        <translation>调整系数(-0.4%)</translation>
    </message>
    <message>
        <source>Brightness(+)</source>
        <translation>亮度(+)</translation>
    </message>
    <message>
        <source>Switch seam(↑)</source>
        <translation>切换拼缝(↑)</translation>
    </message>
    <message>
        <source>Switch seam(↓)</source>
        <translation>切换拼缝(↓)</translation>
    </message>
    <message>
        <source>Switch seam(←)</source>
        <translation>切换拼缝(←)</translation>
    </message>
    <message>
        <source>Switch seam(→)</source>
        <translation>切换拼缝(→)</translation>
    </message>
    <message>
        <source>Brightness(-)</source>
        <translation>亮度(-)</translation>
    </message>
</context>
<context>
    <name>CTargetMailboxes</name>
    <message>
        <source>Target mailboxes</source>
        <translation>收件邮箱</translation>
    </message>
    <message>
        <source>Add email</source>
        <translation>添加邮箱</translation>
    </message>
    <message>
        <source>Are you sure want to delete email?</source>
        <translation>确定要删除该邮箱吗？</translation>
    </message>
    <message>
        <source>Up and Down select a recipient, F2 edits it, Delete deletes it.</source>
        <translation>按上下方向键选择收件人，按 F2 编辑，按 Delete 删除。</translation>
    </message>
</context>
<context>
    <name>CTypeLibrarySetting</name>
    <message>
        <source>Create multi-receiver cabinet type</source>
        <translation>新建多接收卡箱体类型</translation>
    </message>
    <message>
        <source>New type folder(Ctrl+N)</source>
        <translation>新建类型文件夹(Ctrl+N)</translation>
    </message>
    <message>
        <source>Import as folder(Ctrl+I)</source>
        <translation>导入文件夹(Ctrl+I)</translation>
    </message>
    <message>
        <source>Import cabinet type file(Suffix rcvp,rcvbp)(Ctrl+A)</source>
        <translation>导入箱体类型文件（后缀 rcvp、rcvbp）(Ctrl+A)</translation>
    </message>
    <message>
        <source>Delete all types</source>
        <translation>删除所有类型</translation>
    </message>
    <message>
        <source>Are you sure you want to delete all types?</source>
        <translation>确定要删除所有类型吗？</translation>
    </message>
</context>
<context>
    <name>CWizardSteps</name>
    <message>
        <source>Step 1</source>
        <translation>步骤 1</translation>
    </message>
    <message>
        <source>Step 2</source>
        <translation>步骤 2</translation>
    </message>
    <message>
        <source>Step 3</source>
        <translation>步骤 3</translation>
    </message>
    <message>
        <source>Receiver information</source>
        <translation>接收卡信息</translation>
    </message>
    <message>
        <source>Topology selection</source>
        <translation>走线拓扑选择</translation>
    </message>
    <message>
        <source>Cabinet label</source>
        <translation>箱体标签</translation>
    </message>
</context>
<context>
    <name>NameList</name>
    <message>
        <source>, </source>
        <extracomment>Between the names of a list</extracomment>
        <translation>、</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 以及另外 %n 个</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Widgetry</name>
    <message>
        <source>Previous</source>
        <translation>上一步</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>下一步</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>是(&amp;Y)</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>否(&amp;N)</translation>
    </message>
</context>
</TS>
