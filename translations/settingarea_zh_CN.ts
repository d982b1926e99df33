<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
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
